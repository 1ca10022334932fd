// DXF version names.
#include "platform/dxf/DxfFileVersion.h"

namespace {
struct VersionName {
  OdDb::DwgVersion version;
  const char* name;
};
constexpr VersionName kNames[] = {
    {OdDb::vAC12, "AC1009"}, {OdDb::vAC14, "AC1014"}, {OdDb::vAC15, "AC1015"},
    {OdDb::vAC18, "AC1018"}, {OdDb::vAC21, "AC1021"}, {OdDb::vAC24, "AC1024"},
    {OdDb::vAC27, "AC1027"}, {OdDb::vAC32, "AC1032"},
};
}  // namespace

OdDb::DwgVersion DxfFileVersion::fromName(const OdString& name) {
  OdString trimmed = name;
  const std::string text = trimmed.trimRight().str();
  for (const VersionName& entry : kNames)
    if (text == entry.name) return entry.version;
  if (text == "AC1012" || text == "AC1013") return OdDb::vAC14;
  if (text.size() == 6 && text.compare(0, 2, "AC") == 0 && text < "AC1012") return OdDb::vAC12;
  return OdDb::kDHL_CURRENT;
}

const char* DxfFileVersion::name(OdDb::DwgVersion version) {
  for (const VersionName& entry : kNames)
    if (entry.version == version) return entry.name;
  return "AC1032";
}

bool DxfFileVersion::isWritable(OdDb::DwgVersion version) {
  if (version < OdDb::vAC15) return false;
  for (const VersionName& entry : kNames)
    if (entry.version == version) return true;
  return false;
}
