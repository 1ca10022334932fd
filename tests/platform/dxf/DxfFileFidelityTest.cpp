// What a file says beyond the object model: layers of files without tables, applications' 102
// groups, the paper-space flag, and values that are not finite numbers.
#include <gtest/gtest.h>

#include "platform/db/DbTestSupport.h"
#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/dxf/DxfFile.h"
#include "platform/dxf/DxfTagReader.h"

namespace {
// An R12 file: no TABLES, entities straight in ENTITIES.
std::string entitiesOnly(const std::string& records) {
  return "0\nSECTION\n2\nENTITIES\n" + records + "0\nENDSEC\n0\nEOF\n";
}

OdDbObjectIdArray modelSpaceIds(OdDbDatabase* db) {
  OdDbObjectIdArray ids;
  OdDbObjectPtr model = db->getModelSpaceId().safeOpenObject();
  for (OdDbObjectIteratorPtr it = static_cast<OdDbBlockTableRecord*>(model.get())->newIterator();
       !it->done(); it->step())
    ids.append(it->objectId());
  return ids;
}

// Per record name, the values of its 67 tags.
std::map<std::string, std::vector<int>> paperFlags(const std::string& bytes) {
  std::map<std::string, std::vector<int>> flags;
  std::unique_ptr<DxfTagReader> reader = DxfTagReader::fromMemory(bytes);
  std::string record;
  DxfTag tag;
  while (reader->next(tag)) {
    if (tag.code() == 0) record = std::string(tag.raw());
    if (tag.code() == 67) flags[record].push_back(tag.asInt16());
  }
  return flags;
}
}  // namespace

TEST(DxfFileFidelity, EntitiesOfAFileWithoutTablesAreOnTheDatabasesOwnLayers) {
  OdDbDatabasePtr db =
      DxfFile::readFromMemory(entitiesOnly("0\nLINE\n8\n0\n10\n1\n20\n2\n11\n3\n21\n4\n"
                                           "0\nLINE\n8\nWALLS\n10\n5\n20\n6\n11\n7\n21\n8\n"));
  const OdDbObjectIdArray lines = modelSpaceIds(db.get());
  ASSERT_EQ(lines.length(), 2u);
  OdDbEntityPtr first = OdDbEntity::cast(lines[0].safeOpenObject().get());
  OdDbEntityPtr second = OdDbEntity::cast(lines[1].safeOpenObject().get());
  EXPECT_EQ(first->layerId(), db->getLayerZeroId());
  EXPECT_EQ(second->layer(), "WALLS");
  OdDbAuditInfo audit(false);
  db->auditDatabase(&audit);
  EXPECT_EQ(audit.numErrors(), 0);
}

TEST(DxfFileFidelity, ApplicationGroupsComeBackWhereTheyWere) {
  const std::string file = entitiesOnly(
      "0\nLINE\n5\n2A\n102\n{JB_APP\n1\nkept text\n40\n2.5\n102\n}\n100\nAcDbEntity\n8\n0\n"
      "100\nAcDbLine\n10\n1\n20\n2\n30\n0\n11\n3\n21\n4\n31\n0\n");
  const std::string written = DxfFile::writeToMemory(DxfFile::readFromMemory(file).get());
  const std::size_t group = written.find("{JB_APP");
  ASSERT_NE(group, std::string::npos) << written;
  EXPECT_LT(group, written.find("kept text"));
  EXPECT_LT(written.find("kept text"), written.find("}", group));
  EXPECT_LT(group, written.find("AcDbLine"));
  EXPECT_EQ(DxfFile::writeToMemory(DxfFile::readFromMemory(written).get()), written);
}

TEST(DxfFileFidelity, PaperSpaceEntitiesCarryTheirFlag) {
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  for (const OdDbObjectId& space : {db->getModelSpaceId(), db->getPaperSpaceId()}) {
    OdDbObjectPtr block = space.safeOpenObject(OdDb::kForWrite);
    OdDbLinePtr line = OdDbLine::createObject();
    static_cast<OdDbBlockTableRecord*>(block.get())->appendOdDbEntity(line.get());
  }
  const std::string written = DxfFile::writeToMemory(db.get());
  EXPECT_EQ(paperFlags(written)["LINE"], std::vector<int>{1});
  // A read file's flag is neither lost nor doubled.
  EXPECT_EQ(paperFlags(DxfFile::writeToMemory(DxfFile::readFromMemory(written).get()))["LINE"],
            std::vector<int>{1});
}

TEST(DxfFileFidelity, NonFiniteNumbersAreRefusedWithTheirPlace) {
  for (const char* value : {"nan", "inf", "-INF", "NaN"}) {
    try {
      DxfFile::readFromMemory(
          entitiesOnly(std::string("0\nLINE\n8\n0\n10\n1\n20\n") + value + "\n11\n3\n21\n4\n"));
      ADD_FAILURE() << value << " was read";
    } catch (const OdError& error) {
      EXPECT_EQ(error.code(), eInvalidDxfCode);
      EXPECT_NE(error.description().find("line 12: group code 20 value '" + std::string(value) +
                                         "', expected a finite real number"),
                std::string::npos)
          << error.description();
    }
  }
}
