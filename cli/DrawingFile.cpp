// Files go through the platform's DXF layer; the version a drawing was read in is the
// "$ACADVER" header variable the reader kept with the database.
#include "cli/DrawingFile.h"

#include <variant>

#include "platform/dxf/DxfFile.h"
#include "platform/dxf/DxfFileInfo.h"

namespace {
struct Release {
  const char* release;
  const char* tag;
  OdDb::DwgVersion version;
  bool writable;
};
const Release kReleases[] = {
    {"R12", "AC1009", OdDb::vAC12, false},  {"R14", "AC1014", OdDb::vAC14, false},
    {"R2000", "AC1015", OdDb::vAC15, true}, {"R2004", "AC1018", OdDb::vAC18, true},
    {"R2007", "AC1021", OdDb::vAC21, true}, {"R2010", "AC1024", OdDb::vAC24, true},
    {"R2013", "AC1027", OdDb::vAC27, true}, {"R2018", "AC1032", OdDb::vAC32, true},
};
}  // namespace

OdDbDatabasePtr DrawingFile::read(const std::string& path) {
  return DxfFile::read(path);
}

void DrawingFile::write(OdDbDatabase* database, const std::string& path,
                        const SaveOptions& options) {
  DxfWriteOptions dxf;
  dxf.binary = options.binary;
  dxf.version = options.version;
  DxfFile::write(database, path, dxf);
}

std::string DrawingFile::versionOf(const OdDbDatabase* database) {
  const DxfFileInfoPtr info = DxfFileInfo::of(const_cast<OdDbDatabase*>(database), false);
  if (info.isNull()) return {};
  for (const DxfFileInfo::HeaderVariable& variable : info->header) {
    if (variable.name != "$ACADVER") continue;
    const DxfKeptTags::Item* item = variable.tags.find(1);
    const OdString* tag = item ? std::get_if<OdString>(&item->value) : nullptr;
    if (!tag) return {};
    for (const Release& release : kReleases)
      if (tag->iEquals(release.tag)) return std::string(release.release) + " (" + release.tag + ")";
    return tag->str();
  }
  return {};
}

bool DrawingFile::versionByName(const std::string& name, OdDb::DwgVersion& version) {
  for (const Release& release : kReleases)
    if (release.writable && name == release.release) {
      version = release.version;
      return true;
    }
  return false;
}
