// The tolerant reader, one fixture per kind of damage: drawings made here are written, damaged,
// then recovered; the checks are what survived and which problems were reported.
#include <gtest/gtest.h>

#include <set>

#include "platform/db/DbTestSupport.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbXrecord.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/dxf/DxfFile.h"

namespace {
using Report = DxfRecoverReport;

OdDbBlockTableRecord* modelSpace(OdDbDatabase* db, OdDbObjectPtr& holder, OdDb::OpenMode mode) {
  holder = db->getModelSpaceId().safeOpenObject(mode);
  return static_cast<OdDbBlockTableRecord*>(holder.get());
}

OdDbDatabasePtr drawingOfLines(int count) {
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  OdDbObjectPtr holder;
  OdDbBlockTableRecord* model = modelSpace(db.get(), holder, OdDb::kForWrite);
  for (int i = 1; i <= count; ++i) {
    OdDbLinePtr line = OdDbLine::createObject();
    line->setStartPoint(OdGePoint3d(i, 0, 0));
    model->appendOdDbEntity(line.get());
  }
  OdDbXrecordPtr record = OdDbXrecord::createObject();
  record->setFromRbChain(OdResBuf::newRb(1, "payload").get());
  OdDbObjectPtr named = db->getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite);
  static_cast<OdDbDictionary*>(named.get())->setAt("JB_KEPT", record.get());
  return db;
}

// Per model-space entity: the x of its start (lines) with its handle.
std::map<double, OdDbHandle> linesOf(OdDbDatabase* db) {
  std::map<double, OdDbHandle> lines;
  OdDbObjectPtr holder;
  for (OdDbObjectIteratorPtr it = modelSpace(db, holder, OdDb::kForRead)->newIterator();
       !it->done(); it->step()) {
    OdDbObjectPtr entity = it->objectId().safeOpenObject();
    if (auto line = OdDbLine::cast(entity.get()); !line.isNull())
      lines[line->startPoint().x] = it->objectId().getHandle();
  }
  return lines;
}

// Where the line holding value starts, the count-th time it occurs (from 1).
std::size_t lineStart(const std::string& text, const std::string& value, int count = 1) {
  int found = 0;
  for (std::size_t at = text.find("\n" + value); at != std::string::npos;
       at = text.find("\n" + value, at + 1)) {
    const std::size_t end = at + 1 + value.size();
    if (end < text.size() && (text[end] == '\n' || text[end] == '\r') && ++found == count)
      return at + 1;
  }
  ADD_FAILURE() << value << " is not in the file " << count << " times";
  return 0;
}

// The start of the 0 line of the record or marker whose value line starts at valueLine.
std::size_t tagStart(const std::string& text, std::size_t valueLine) {
  return text.rfind('\n', valueLine - 2) + 1;
}

// text with records added at the end of a section.
std::string withRecords(std::string text, const std::string& section, const std::string& records) {
  text.insert(tagStart(text, text.find("ENDSEC", lineStart(text, section))), records);
  return text;
}

OdDbDatabasePtr recovered(const std::string& bytes, Report& report) {
  OdDbDatabasePtr db = DxfFile::recoverFromMemory(bytes, report);
  // What recovery gives is a sound drawing: the strict reader takes it as written.
  DxfFile::readFromMemory(DxfFile::writeToMemory(db.get()));
  return db;
}

std::string issues(const Report& report) {
  std::string all;
  for (const Report::Issue& issue : report.issues())
    all += issue.code + ": " + issue.message + "\n";
  return all;
}
}  // namespace

TEST(DxfRecoverTruncated, EverythingBeforeTheCutIsKept) {
  const std::string text = DxfFile::writeToMemory(drawingOfLines(10).get());
  const std::size_t sixth = tagStart(text, lineStart(text, "LINE", 6));

  const std::string atRecord = text.substr(0, sixth);
  EXPECT_OD_ERROR(DxfFile::readFromMemory(atRecord), eBadDxfSequence);
  Report report;
  OdDbDatabasePtr db = recovered(atRecord, report);
  const auto lines = linesOf(db.get());
  EXPECT_EQ(lines.size(), 5u);
  EXPECT_EQ(lines.begin()->first, 1.0);
  EXPECT_EQ(lines.rbegin()->first, 5.0);
  EXPECT_EQ(report.count(Report::kTruncated), 1u) << issues(report);
  EXPECT_EQ(report.count(Report::kUnterminated), 1u) << issues(report);
  EXPECT_EQ(report.count(Report::kRecordDropped), 0u) << issues(report);

  // Cut inside a tag: its group code without a value.
  const std::size_t x = text.find("10", sixth);
  Report cutTag;
  EXPECT_GE(linesOf(recovered(text.substr(0, text.find('\n', x) + 1), cutTag).get()).size(), 5u);
  EXPECT_EQ(cutTag.count(Report::kTruncated), 1u) << issues(cutTag);

  DxfWriteOptions binaryForm;
  binaryForm.binary = true;
  const std::string binary = DxfFile::writeToMemory(drawingOfLines(400).get(), binaryForm);
  Report halfBinary;
  const std::size_t kept =
      linesOf(recovered(binary.substr(0, binary.size() * 2 / 3), halfBinary).get()).size();
  EXPECT_GT(kept, 0u);
  EXPECT_LT(kept, 400u);
  EXPECT_EQ(halfBinary.count(Report::kTruncated), 1u) << issues(halfBinary);
}

TEST(DxfRecoverUnterminated, ASectionWithoutEndsecEndsWhereTheNextBegins) {
  std::string text = DxfFile::writeToMemory(drawingOfLines(3).get());
  // The ENDSEC that closes ENTITIES: the last one before OBJECTS.
  const std::size_t objects = lineStart(text, "OBJECTS");
  const std::size_t endsec = tagStart(text, text.rfind("ENDSEC", objects));
  text.erase(endsec, text.find('\n', text.find('\n', endsec) + 1) + 1 - endsec);
  EXPECT_OD_ERROR(DxfFile::readFromMemory(text), eBadDxfSequence);

  Report report;
  OdDbDatabasePtr db = recovered(text, report);
  EXPECT_EQ(linesOf(db.get()).size(), 3u);
  OdDbObjectPtr named = db->getNamedObjectsDictionaryId().safeOpenObject();
  EXPECT_TRUE(static_cast<OdDbDictionary*>(named.get())->has("JB_KEPT"));
  EXPECT_EQ(report.count(Report::kUnterminated), 1u) << issues(report);
  EXPECT_EQ(report.issues().size(), 1u) << issues(report);
}

TEST(DxfRecoverHandles, BadAndRepeatedHandlesAreRenumbered) {
  OdDbDatabasePtr source = drawingOfLines(1);
  const std::string model = source->getModelSpaceId().getHandle().ascii().str();
  const auto line = [&](const std::string& handle, int x) {
    return "0\nLINE\n5\n" + handle + "\n330\n" + model +
           "\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n" + std::to_string(x) +
           "\n20\n0\n30\n0\n11\n0\n21\n0\n31\n0\n";
  };
  const std::string text =
      withRecords(DxfFile::writeToMemory(source.get()), "ENTITIES",
                  line("F001", 100) + line("F001", 200) + line("XYZ", 300) + line(model, 400));
  EXPECT_THROW(DxfFile::readFromMemory(text), OdError);

  Report report;
  OdDbDatabasePtr db = recovered(text, report);
  const auto lines = linesOf(db.get());
  std::set<std::uint64_t> handles;
  for (const auto& kept : lines)
    handles.insert(kept.second.value());
  EXPECT_EQ(lines.size(), 5u);
  EXPECT_EQ(handles.size(), 5u);
  EXPECT_EQ(lines.at(100).ascii(), "F001");
  EXPECT_EQ(report.count(Report::kDuplicateHandle), 2u) << issues(report);
  EXPECT_EQ(report.count(Report::kBadHandle), 1u) << issues(report);
  for (const Report::Issue& issue : report.issues())
    EXPECT_EQ(issue.handles.size(), issue.code == Report::kDuplicateHandle ? 2u : 0u);
  EXPECT_EQ(report.issues().size(), 3u) << issues(report);
}

TEST(DxfRecoverDangling, OrphansAreReownedAndPointersToNothingDropped) {
  const std::string text = withRecords(
      withRecords(
          DxfFile::writeToMemory(drawingOfLines(1).get()), "ENTITIES",
          "0\nLINE\n5\nF013\n330\nDEAD3\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n7\n20\n0\n"
          "30\n0\n11\n0\n21\n0\n31\n0\n"),
      "OBJECTS",
      "0\nXRECORD\n5\nF010\n330\nDEAD\n100\nAcDbXrecord\n280\n1\n1\nlost\n"
      "0\nDICTIONARY\n5\nF011\n330\nDEAD2\n100\nAcDbDictionary\n281\n1\n3\nGOOD\n350\nF012\n"
      "3\nGONE\n350\nBEEF\n3\nLISTED\n350\nF014\n"
      "0\nXRECORD\n5\nF012\n330\nF011\n100\nAcDbXrecord\n280\n1\n1\ngood\n"
      "0\nXRECORD\n5\nF014\n330\nDEAD4\n100\nAcDbXrecord\n280\n1\n1\nlisted\n");

  Report report;
  OdDbDatabasePtr db = recovered(text, report);
  EXPECT_EQ(linesOf(db.get()).count(7.0), 1u);
  OdDbObjectPtr namedObject = db->getNamedObjectsDictionaryId().safeOpenObject();
  auto* named = static_cast<OdDbDictionary*>(namedObject.get());
  EXPECT_EQ(named->getAt("RECOVERED_F010").getHandle().ascii(), "F010");
  const OdDbObjectId inner = named->getAt("RECOVERED_F011");
  ASSERT_FALSE(inner.isNull());
  OdDbObjectPtr innerObject = inner.safeOpenObject();
  auto* dictionary = static_cast<OdDbDictionary*>(innerObject.get());
  EXPECT_EQ(dictionary->numEntries(), 2u);
  EXPECT_FALSE(dictionary->has("GONE"));
  EXPECT_EQ(dictionary->getAt("LISTED", OdDb::kForRead)->ownerId(), inner);
  EXPECT_EQ(dictionary->getAt("GOOD", OdDb::kForRead)->ownerId(), inner);
  EXPECT_EQ(report.count(Report::kDanglingOwner), 4u) << issues(report);
  EXPECT_EQ(report.count(Report::kDanglingPointer), 1u) << issues(report);
  EXPECT_EQ(report.issues().size(), 5u) << issues(report);
}

TEST(DxfRecoverCycles, ABlockThatShowsItselfLosesTheClosingReference) {
  OdDbDatabasePtr source = OdDbDatabase::createObject();
  OdDbObjectIdArray blocks;
  {
    OdDbObjectPtr tableObject = source->getBlockTableId().safeOpenObject(OdDb::kForWrite);
    for (const char* name : {"A", "B", "SELF"}) {
      OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
      block->setName(name);
      blocks.append(static_cast<OdDbSymbolTable*>(tableObject.get())->add(block.get()));
    }
  }
  const auto insert = [&](const OdDbObjectId& into, const OdDbObjectId& shown) {
    OdDbObjectPtr holder = into.safeOpenObject(OdDb::kForWrite);
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(shown);
    static_cast<OdDbBlockTableRecord*>(holder.get())->appendOdDbEntity(reference.get());
  };
  insert(source->getModelSpaceId(), blocks[0]);
  insert(blocks[0], blocks[1]);
  insert(blocks[1], blocks[0]);
  insert(blocks[2], blocks[2]);
  insert(source->getModelSpaceId(), blocks[2]);

  Report report;
  OdDbDatabasePtr db = recovered(DxfFile::writeToMemory(source.get()), report);
  EXPECT_EQ(report.count(Report::kBlockCycle), 2u) << issues(report);
  EXPECT_EQ(report.issues().size(), 2u) << issues(report);
  // Per block name, the names of the blocks its live references show.
  std::map<std::string, std::vector<std::string>> shows;
  for (const OdDbObjectId& id : db->objectIds()) {
    if (id.isErased()) continue;
    OdDbObjectPtr object = id.safeOpenObject();
    auto reference = OdDbBlockReference::cast(object.get());
    if (reference.isNull()) continue;
    OdDbBlockTableRecordPtr owner =
        OdDbBlockTableRecord::cast(reference->ownerId().safeOpenObject().get());
    OdDbBlockTableRecordPtr shown =
        OdDbBlockTableRecord::cast(reference->blockTableRecord().safeOpenObject().get());
    shows[owner->getName().str()].push_back(shown->getName().str());
  }
  const std::vector<std::string> a{"B"}, model{"A", "SELF"};
  EXPECT_EQ(shows["*Model_Space"], model);
  EXPECT_EQ(shows["A"], a);
  EXPECT_TRUE(shows["B"].empty());
  EXPECT_TRUE(shows["SELF"].empty());
}
