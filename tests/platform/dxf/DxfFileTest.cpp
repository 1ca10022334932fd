// Whole drawings through DXF files: what the database holds comes back, unknown records and unread
// tags are written back, malformed files are refused with their place, saves are atomic.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/db/DbTestSupport.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbXrecord.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/dxf/DxfFile.h"
#include "platform/dxf/DxfFileTestSupport.h"
#include "support/ExternalDxfReader.h"
#include "support/ReferenceFiles.h"

namespace fs = std::filesystem;

namespace {
std::string slurp(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

fs::path scratchFolder(const std::string& name) {
  fs::path folder = fs::temp_directory_path() / ("jbcb_dxf_" + name + std::to_string(::getpid()));
  fs::remove_all(folder);
  fs::create_directories(folder);
  return folder;
}

OdResBufPtr chain(std::initializer_list<OdResBufPtr> items) {
  OdResBufPtr head;
  OdResBuf* tail = nullptr;
  for (const OdResBufPtr& item : items) {
    if (tail)
      tail->setNext(item);
    else
      head = item;
    tail = item.get();
  }
  return head;
}

// A drawing made through the API: a block with an attribute definition, an anonymous block, a
// reference with an attribute, extended data, an extension dictionary and extension records.
struct Drawing {
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  OdDbObjectId lineId, referenceId, anonymousId, recordId;

  Drawing() {
    db->setINSUNITS(4);
    OdDbObjectPtr tableObject = db->getBlockTableId().safeOpenObject(OdDb::kForWrite);
    auto* table = static_cast<OdDbSymbolTable*>(tableObject.get());
    OdDbBlockTableRecordPtr part = OdDbBlockTableRecord::createObject();
    part->setName("PART");
    const OdDbObjectId partId = table->add(part.get());
    OdDbLinePtr line = OdDbLine::createObject();
    line->setEndPoint(OdGePoint3d(10, 5, 0));
    lineId = part->appendOdDbEntity(line.get());
    line->setXData(chain({OdResBuf::newRb(1001, "JBTEST"), OdResBuf::newRb(1000, "kept"),
                          OdResBuf::newRb(1070, 7)})
                       .get());
    line->createExtensionDictionary();
    OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
    definition->setTag("SIZE");
    part->appendOdDbEntity(definition.get());
    OdDbBlockTableRecordPtr anonymous = OdDbBlockTableRecord::createObject();
    anonymous->setName("*U");
    anonymousId = table->add(anonymous.get());
    OdDbLinePtr copy = OdDbLine::createObject();
    anonymous->appendOdDbEntity(copy.get());

    OdDbObjectPtr modelObject = db->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
    auto* model = static_cast<OdDbBlockTableRecord*>(modelObject.get());
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(partId);
    referenceId = model->appendOdDbEntity(reference.get());
    OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setTag("SIZE");
    attribute->setTextString("12");
    reference->appendAttribute(attribute.get());
    OdDbBlockReferencePtr second = OdDbBlockReference::createObject();
    second->setBlockTableRecord(anonymousId);
    model->appendOdDbEntity(second.get());

    OdDbXrecordPtr record = OdDbXrecord::createObject();
    record->setFromRbChain(chain({OdResBuf::newRb(1, "payload"), OdResBuf::newRb(40, 2.5),
                                  OdResBuf::newRb(330, partId)})
                               .get());
    OdDbObjectPtr named = db->getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite);
    recordId = static_cast<OdDbDictionary*>(named.get())->setAt("JB_TEST_DATA", record.get());
    OdDbObjectPtr dictionary = line->extensionDictionary().safeOpenObject(OdDb::kForWrite);
    OdDbXrecordPtr inner = OdDbXrecord::createObject();
    static_cast<OdDbDictionary*>(dictionary.get())->setAt("INNER", inner.get());
  }
};

// A text drawing with a record of a class nobody registered, an entity that carries tags its
// class does not model, and header variables beyond those understood.
const char* const kUnknownRecordFile =
    "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1032\n9\n$LIMMAX\n10\n420.0\n20\n297.0\n"
    "9\n$INSUNITS\n70\n6\n9\n$HANDSEED\n5\n100\n0\nENDSEC\n"
    "0\nSECTION\n2\nCLASSES\n0\nCLASS\n1\nJB_SAMPLE_RECORD\n2\nJbSampleRecord\n3\nJBTEST Classes\n"
    "90\n1153\n91\n1\n280\n0\n281\n0\n0\nENDSEC\n"
    "0\nSECTION\n2\nENTITIES\n0\nLINE\n5\n40\n100\nAcDbEntity\n8\n0\n440\n33554661\n"
    "100\nAcDbLine\n10\n1.0\n20\n2.0\n30\n0.0\n11\n3.0\n21\n4.0\n31\n0.0\n0\nENDSEC\n"
    "0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n5\nC\n330\n0\n100\nAcDbDictionary\n281\n1\n"
    "3\nJB_SAMPLE\n350\n50\n0\nJB_SAMPLE_RECORD\n5\n50\n330\nC\n100\nJbSampleRecord\n"
    "90\n3\n340\n40\n310\n0A0B0C\n1001\nACAD\n1000\nnote\n0\nENDSEC\n0\nEOF\n";

}  // namespace

TEST(DxfFileRoundTrip, ApiDrawingComesBackInEveryVersionAndForm) {
  Drawing drawing;
  const DxfModelPicture original = pictureOf(drawing.db.get());
  for (OdDb::DwgVersion version : {OdDb::vAC15, OdDb::vAC18, OdDb::vAC21, OdDb::vAC32}) {
    for (bool binary : {false, true}) {
      SCOPED_TRACE(::testing::Message() << "version " << version << (binary ? " binary" : " text"));
      DxfWriteOptions options{binary, version};
      const std::string first = DxfFile::writeToMemory(drawing.db.get(), options);
      OdDbDatabasePtr db = DxfFile::readFromMemory(first);
      const DxfModelPicture reread = pictureOf(db.get());
      for (const auto& object : original.objects)
        EXPECT_EQ(reread.objects.at(object.first), object.second);
      EXPECT_EQ(reread.blockEntities, original.blockEntities);
      EXPECT_EQ(db->getINSUNITS(), 4);

      OdDbObjectPtr line = db->getOdDbObjectId(drawing.lineId.getHandle()).safeOpenObject();
      OdResBufPtr xdata = line->xData("JBTEST");
      ASSERT_FALSE(xdata.isNull());
      EXPECT_EQ(xdata->next()->getString(), "kept");
      EXPECT_EQ(xdata->next()->next()->getInt16(), 7);
      OdDbObjectPtr dictionary = line->extensionDictionary().safeOpenObject();
      EXPECT_TRUE(static_cast<OdDbDictionary*>(dictionary.get())->has("INNER"));

      OdDbObjectPtr named = db->getNamedObjectsDictionaryId().safeOpenObject();
      OdDbXrecordPtr record = OdDbXrecord::cast(
          static_cast<OdDbDictionary*>(named.get())->getAt("JB_TEST_DATA", OdDb::kForRead).get());
      ASSERT_FALSE(record.isNull());
      OdResBufPtr items = record->rbChain();
      EXPECT_EQ(items->getString(), "payload");
      EXPECT_EQ(items->next()->getDouble(), 2.5);
      OdDbObjectPtr pointed = items->next()->next()->getObjectId().safeOpenObject();
      EXPECT_EQ(static_cast<OdDbBlockTableRecord*>(pointed.get())->getName(), "PART");

      OdDbObjectPtr reference =
          db->getOdDbObjectId(drawing.referenceId.getHandle()).safeOpenObject();
      OdDbObjectIteratorPtr attributes =
          static_cast<OdDbBlockReference*>(reference.get())->attributeIterator();
      ASSERT_FALSE(attributes->done());
      OdDbObjectPtr attribute = attributes->objectId().safeOpenObject();
      EXPECT_EQ(static_cast<OdDbAttribute*>(attribute.get())->textString(), "12");
      EXPECT_EQ(attribute->ownerId(), reference->objectId());

      EXPECT_NE(first.find("XRECORD"), std::string::npos);
      EXPECT_EQ(DxfFile::writeToMemory(db.get(), options), first) << "rewrite differs";
    }
  }
}

TEST(DxfFileRoundTrip, UnknownRecordsAndUnreadTagsAreWrittenBackTagForTag) {
  OdDbDatabasePtr db = DxfFile::readFromMemory(kUnknownRecordFile);
  EXPECT_EQ(db->getINSUNITS(), 6);
  OdDbObjectPtr object = db->getOdDbObjectId(0x50).safeOpenObject();
  OdDbUnknownObjectPtr unknown = OdDbUnknownObject::cast(object.get());
  ASSERT_FALSE(unknown.isNull());
  EXPECT_EQ(unknown->dxfRecordName(), "JB_SAMPLE_RECORD");
  EXPECT_EQ(unknown->ownerId(), db->getNamedObjectsDictionaryId());
  // Its pointer resolves to the line read before it.
  OdResBufPtr items = unknown->items();
  const OdResBuf* pointer = items->next()->next().get();
  ASSERT_EQ(pointer->restype(), 340);
  EXPECT_EQ(pointer->getObjectId().getHandle(), OdDbHandle(0x40));
  EXPECT_TRUE(pointer->getObjectId().safeOpenObject()->isKindOf(OdDbLine::desc()));
  EXPECT_FALSE(unknown->xData("ACAD").isNull());

  const std::string text = DxfFile::writeToMemory(db.get());
  EXPECT_NE(text.find("JB_SAMPLE_RECORD\r\n  5\r\n50\r\n330\r\nC\r\n100\r\nJbSampleRecord\r\n"
                      " 90\r\n        3\r\n340\r\n40\r\n310\r\n0A0B0C\r\n1001\r\nACAD\r\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("  1\r\nJB_SAMPLE_RECORD\r\n  2\r\nJbSampleRecord\r\n  3\r\nJBTEST Classes"),
            std::string::npos);
  EXPECT_NE(text.find("440\r\n 33554661\r\n100\r\nAcDbLine"), std::string::npos)
      << "the transparency the line does not model stays in its subclass";
  EXPECT_NE(text.find("$LIMMAX\r\n 10\r\n420.0\r\n 20\r\n297.0\r\n"), std::string::npos);
  EXPECT_NE(text.find("$INSUNITS\r\n 70\r\n     6\r\n"), std::string::npos);
}

TEST(DxfFileHandles, NewHandlesStartAtTheFilesSeed) {
  // A drawing of one line, its handles up to D, its seed moved on from E to 200.
  const std::string seeded = "$HANDSEED\r\n  5\r\n";
  std::string file = ReferenceFileBytes("entities/line-r2018.dxf");
  const std::size_t at = file.find(seeded) + seeded.size();
  ASSERT_EQ(file.substr(at, 3), "E\r\n");
  file.replace(at, 1, "200");
  OdDbDatabasePtr db = DxfFile::readFromMemory(file);
  EXPECT_EQ(db->handseed(), OdDbHandle(0x200));
  OdDbXrecordPtr record = OdDbXrecord::createObject();
  EXPECT_EQ(db->addOdDbObject(record.get()).getHandle(), OdDbHandle(0x200));
  record.release();
  EXPECT_NE(DxfFile::writeToMemory(db.get()).find(seeded + "201\r\n"), std::string::npos);

  // A seed below a handle in use gives way to the handles.
  file.replace(at, 3, "3");
  EXPECT_EQ(DxfFile::readFromMemory(file)->handseed(), OdDbHandle(0xE));
}

TEST(DxfFileHandles, SixteenDigitHandlesReadAndLongerOnesAreRefused) {
  OdDbHandle handle;
  EXPECT_TRUE(OdDbHandle::fromAscii("FEDCBA9876543210", handle));
  EXPECT_EQ(handle.value(), 0xFEDCBA9876543210u);
  EXPECT_FALSE(OdDbHandle::fromAscii("10FEDCBA987654321", handle));
  EXPECT_TRUE(handle.isNull());

  // The line and the pointer to it carry a handle of sixteen digits.
  std::string file = kUnknownRecordFile;
  for (const char* text : {"5\n40\n", "340\n40\n"}) {
    const std::size_t at = file.find(text) + std::string(text).size() - 3;
    file.replace(at, 2, "7000000000000040");
  }
  OdDbDatabasePtr db = DxfFile::readFromMemory(file);
  const OdDbObjectId line = db->getOdDbObjectId(OdDbHandle(0x7000000000000040));
  EXPECT_TRUE(line.safeOpenObject()->isKindOf(OdDbLine::desc()));
  OdDbUnknownObjectPtr unknown =
      OdDbUnknownObject::cast(db->getOdDbObjectId(0x50).safeOpenObject().get());
  EXPECT_EQ(unknown->items()->next()->next()->getObjectId(), line);
  EXPECT_NE(DxfFile::writeToMemory(db.get()).find("LINE\r\n  5\r\n7000000000000040\r\n"),
            std::string::npos);
}

TEST(DxfFileErrors, MalformedFilesNameTheirPlaceAndWhatWasExpected) {
  const auto failure = [](const std::string& bytes) -> OdError {
    try {
      DxfFile::readFromMemory(bytes);
    } catch (const OdError& error) {
      return error;
    }
    return OdError(eOk, "no failure");
  };
  OdError badCode = failure("0\nSECTION\n2\nENTITIES\n0\nLINE\nabc\n1.0\n0\nENDSEC\n0\nEOF\n");
  EXPECT_EQ(badCode.code(), eInvalidDxfCode);
  EXPECT_NE(badCode.description().find("line 7"), std::string::npos) << badCode.description();

  OdError unterminated = failure("0\nSECTION\n2\nENTITIES\n0\nLINE\n5\n2A\n");
  EXPECT_EQ(unterminated.code(), eBadDxfSequence);
  EXPECT_NE(unterminated.description().find("0/ENDSEC"), std::string::npos);

  OdError notASection = failure("0\nSECTION\n2\nENTITIES\n0\nENDSEC\n8\nlayer\n0\nEOF\n");
  EXPECT_NE(notASection.description().find("line 8: group code 8 'layer' met, expected 0/SECTION"),
            std::string::npos)
      << notASection.description();

  OdError ownReader = failure(
      "0\nSECTION\n2\nENTITIES\n0\nLINE\n5\n2A\n100\nAcDbLine\n10\n1.0\n0\nENDSEC\n0\nEOF\n");
  EXPECT_EQ(ownReader.code(), eBadDxfSequence);
  EXPECT_NE(ownReader.description().find("line 6: LINE record (handle 2A, class OdDbLine)"),
            std::string::npos)
      << ownReader.description();

  std::string binary = DxfFile::writeToMemory(Drawing().db.get(), DxfWriteOptions{true});
  binary.resize(binary.size() / 2);
  OdError truncated = failure(binary);
  EXPECT_NE(truncated.description().find("byte 0x"), std::string::npos) << truncated.description();
}

TEST(DxfFileSave, AFailedSaveLeavesTheOldFileAndNoTemporaryFile) {
  const fs::path folder = scratchFolder("save");
  const fs::path target = folder / "drawing.dxf";
  Drawing drawing;
  DxfFile::write(drawing.db.get(), target.string());
  const std::string before = slurp(target);
  ASSERT_FALSE(before.empty());
  EXPECT_EQ(DxfFile::read(target.string())->handseed(), drawing.db->handseed());

  // The disk refuses more than a few bytes: writing fails half way.
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit saved{};
  ::getrlimit(RLIMIT_FSIZE, &saved);
  rlimit small = saved;
  small.rlim_cur = 512;
  ::setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_OD_ERROR(DxfFile::write(drawing.db.get(), target.string(), DxfWriteOptions{true}),
                  eFileWriteError);
  ::setrlimit(RLIMIT_FSIZE, &saved);

  // A folder cannot be replaced by a file.
  const fs::path blocked = folder / "taken";
  fs::create_directory(blocked);
  EXPECT_OD_ERROR(DxfFile::write(drawing.db.get(), blocked.string()), eFileWriteError);
  EXPECT_TRUE(fs::is_directory(blocked));

  EXPECT_EQ(slurp(target), before);
  int files = 0;
  for (const auto& entry : fs::directory_iterator(folder))
    files += entry.is_regular_file() ? 1 : 0;
  EXPECT_EQ(files, 1) << "a temporary file was left behind";
  fs::remove_all(folder);
}

TEST(DxfFileInterop, AnotherReaderAuditsOurFilesAndWeKeepItsDrawings) {
  if (!ExternalDxfReaderAvailable())
    GTEST_SKIP() << "/usr/bin/python3 cannot import ezdxf: the interop checks are skipped";
  const fs::path folder = scratchFolder("interop");
  std::vector<std::pair<std::string, OdDbDatabasePtr>> ours = {
      {"api", Drawing().db}, {"unknown", DxfFile::readFromMemory(kUnknownRecordFile)}};
  for (auto& drawing : ours) {
    for (bool binary : {false, true}) {
      const fs::path path = folder / (drawing.first + (binary ? "_bin.dxf" : "_asc.dxf"));
      DxfFile::write(drawing.second.get(), path.string(), DxfWriteOptions{binary});
      int status = 0;
      const std::string report = RunExternalDxfReader("audit", path.string(), &status);
      EXPECT_EQ(status, 0) << path << ":\n" << report;
    }
  }

  const std::string created = RunExternalDxfReader("create", folder.string());
  std::istringstream paths(created);
  std::string path;
  int files = 0;
  while (std::getline(paths, path)) {
    SCOPED_TRACE(path);
    ++files;
    const std::string rewritten = path + ".ours.dxf";
    DxfFile::write(DxfFile::read(path).get(), rewritten);
    EXPECT_EQ(RunExternalDxfReader("summary", rewritten), RunExternalDxfReader("summary", path));
  }
  EXPECT_EQ(files, 8) << created;
  fs::remove_all(folder);
}
