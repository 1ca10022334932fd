// Subclass markers for records of R12 files.
#include "platform/dxf/DxfR12Markers.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace {
// Codes of the common entity data that R12 files put before the entity's own.
bool isCommonEntityCode(int code) {
  switch (code) {
    case 6:
    case 8:
    case 48:
    case 60:
    case 62:
    case 67:
    case 284:
    case 347:
    case 370:
    case 390:
    case 410:
    case 420:
    case 430:
    case 440:
      return true;
    default:
      return false;
  }
}

bool isIn(int code, std::initializer_list<int> codes) {
  return std::find(codes.begin(), codes.end(), code) != codes.end();
}

std::size_t afterHandle(const std::vector<DxfTag>& tags) {
  std::size_t at = 0;
  while (at < tags.size() && isIn(tags[at].code(), {5, 105, 330}))
    ++at;
  return at;
}

// A marker tag; its value views a literal, so it lives as long as any tag.
DxfTag marker(const std::vector<DxfTag>& tags, const char* name) {
  const DxfTag::FileForm form = tags.empty() ? DxfTag::FileForm::kText : tags.front().fileForm();
  return DxfTag(100, std::string_view(name), form, 0);
}

// Moves the tags of codes after the others (from first on), keeping their order, and puts the
// marker second between the two runs.
void split(std::vector<DxfTag>& tags, std::size_t first, std::initializer_list<int> codes,
           const char* second) {
  // Extended data stays at the end.
  auto xdata = std::find_if(tags.begin() + static_cast<std::ptrdiff_t>(first), tags.end(),
                            [](const DxfTag& tag) { return tag.code() == 1001; });
  auto middle = std::stable_partition(tags.begin() + static_cast<std::ptrdiff_t>(first), xdata,
                                      [&](const DxfTag& tag) { return !isIn(tag.code(), codes); });
  const auto at = static_cast<std::size_t>(middle - tags.begin());
  tags.insert(tags.begin() + static_cast<std::ptrdiff_t>(at), marker(tags, second));
}

std::int16_t flagsOf(const std::vector<DxfTag>& tags) {
  for (const DxfTag& tag : tags)
    if (tag.code() == 70) return tag.asInt16();
  return 0;
}

const char* tableRecordMarker(const OdString& name) {
  static const char* const kMarkers[][2] = {
      {"LAYER", "AcDbLayerTableRecord"},
      {"LTYPE", "AcDbLinetypeTableRecord"},
      {"STYLE", "AcDbTextStyleTableRecord"},
      {"VIEW", "AcDbViewTableRecord"},
      {"UCS", "AcDbUCSTableRecord"},
      {"VPORT", "AcDbViewportTableRecord"},
      {"DIMSTYLE", "AcDbDimStyleTableRecord"},
      {"APPID", "AcDbRegAppTableRecord"},
      {"BLOCK_RECORD", "AcDbBlockTableRecord"},
  };
  for (const auto& entry : kMarkers)
    if (name.iEquals(entry[0])) return entry[1];
  return nullptr;
}

const char* entityMarker(const OdString& name, const std::vector<DxfTag>& tags) {
  static const char* const kMarkers[][2] = {
      {"LINE", "AcDbLine"},
      {"POINT", "AcDbPoint"},
      {"CIRCLE", "AcDbCircle"},
      {"ARC", "AcDbCircle"},
      {"SOLID", "AcDbTrace"},
      {"TRACE", "AcDbTrace"},
      {"3DFACE", "AcDbFace"},
      {"SHAPE", "AcDbShape"},
      {"INSERT", "AcDbBlockReference"},
      {"TEXT", "AcDbText"},
      {"ATTDEF", "AcDbText"},
      {"ATTRIB", "AcDbText"},
      {"VIEWPORT", "AcDbViewport"},
      {"DIMENSION", "AcDbDimension"},
      {"VERTEX", "AcDbVertex"},
  };
  if (name.iEquals("POLYLINE")) {
    const std::int16_t flags = flagsOf(tags);
    if (flags & 8) return "AcDb3dPolyline";
    if (flags & 16) return "AcDbPolygonMesh";
    if (flags & 64) return "AcDbPolyFaceMesh";
    return "AcDb2dPolyline";
  }
  for (const auto& entry : kMarkers)
    if (name.iEquals(entry[0])) return entry[1];
  return nullptr;
}

const char* vertexMarker(const std::vector<DxfTag>& tags, bool vertexOf3dPolyline) {
  const std::int16_t flags = flagsOf(tags);
  if (flags & 128 && !(flags & 64)) return "AcDbFaceRecord";
  if (flags & 64 && flags & 128) return "AcDbPolyFaceMeshVertex";
  if (flags & 64) return "AcDbPolygonMeshVertex";
  if (flags & 32 || vertexOf3dPolyline) return "AcDb3dPolylineVertex";
  return "AcDb2dVertex";
}
}  // namespace

void DxfR12Markers::insert(const OdString& name, Kind kind, std::vector<DxfTag>& tags,
                           bool vertexOf3dPolyline) {
  std::size_t at = afterHandle(tags);
  if (kind == Kind::kTable) {
    tags.insert(tags.begin() + static_cast<std::ptrdiff_t>(at), marker(tags, "AcDbSymbolTable"));
    return;
  }
  if (kind == Kind::kTableRecord) {
    const char* own = tableRecordMarker(name);
    tags.insert(tags.begin() + static_cast<std::ptrdiff_t>(at),
                marker(tags, "AcDbSymbolTableRecord"));
    if (own) tags.insert(tags.begin() + static_cast<std::ptrdiff_t>(at + 1), marker(tags, own));
    return;
  }
  tags.insert(tags.begin() + static_cast<std::ptrdiff_t>(at), marker(tags, "AcDbEntity"));
  ++at;
  while (at < tags.size() && isCommonEntityCode(tags[at].code()))
    ++at;
  const char* own = entityMarker(name, tags);
  if (!own) return;
  tags.insert(tags.begin() + static_cast<std::ptrdiff_t>(at), marker(tags, own));
  const std::size_t body = at + 1;
  if (name.iEquals("ARC")) {
    split(tags, body, {50, 51}, "AcDbArc");
  } else if (name.iEquals("TEXT")) {
    split(tags, body, {73}, "AcDbText");
  } else if (name.iEquals("ATTDEF")) {
    split(tags, body, {2, 3, 70, 73, 74, 280}, "AcDbAttributeDefinition");
  } else if (name.iEquals("ATTRIB")) {
    split(tags, body, {2, 70, 73, 74, 280}, "AcDbAttribute");
  } else if (name.iEquals("VERTEX")) {
    tags.insert(tags.begin() + static_cast<std::ptrdiff_t>(body),
                marker(tags, vertexMarker(tags, vertexOf3dPolyline)));
  }
}
