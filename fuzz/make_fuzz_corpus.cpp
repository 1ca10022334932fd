// Writes the generated seed inputs of the fuzz targets: a small drawing in both DXF forms,
// written by the project's own tag writers, damaged copies of it, a few contours, whole drawings
// with a graph of every element class, that graph's record and its instance chain. Run it
// with the corpus folder (fuzz/corpus) after changing what it writes; found crashers live beside
// the seeds under their own names and are left alone.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>

#include "CustomizableDrawing.h"
#include "InstanceChainCoding.h"
#include "ModuleFuzzing.h"
#include "StorageRecordCoding.h"
#include "core/CJbCustBlockElementFiler.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/base/OdError.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbXrecord.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbSymbolTable.h"
#include "platform/dxf/DxfAsciiTagWriter.h"
#include "platform/dxf/DxfBinaryTagReader.h"
#include "platform/dxf/DxfBinaryTagWriter.h"
#include "platform/dxf/DxfFile.h"
#include "platform/dxf/DxfFileFiler.h"

namespace fs = std::filesystem;

namespace {
void save(const fs::path& folder, const std::string& name, const std::string& bytes) {
  std::ofstream file(folder / name, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file) throw OdError(eFileWriteError, "cannot write " + (folder / name).string());
}

// Removes the seeds written last time, so that a changed drawing leaves no stale cuts behind.
fs::path seedFolder(const fs::path& folder) {
  fs::create_directories(folder);
  for (const fs::directory_entry& entry : fs::directory_iterator(folder))
    if (entry.path().filename().string().rfind("seed-", 0) == 0) fs::remove(entry.path());
  return folder;
}

// A header and a few entities that between them use every kind of group-code value.
void writeDrawing(DxfTagWriter& out) {
  const std::uint8_t chunk[] = {0x00, 0x01, 0x7F, 0x80, 0xFF};
  out.write(999, "generated seed");
  out.write(0, "SECTION");
  out.write(2, "HEADER");
  out.write(9, "$ACADVER");
  out.write(1, "AC1027");
  out.write(9, "$HANDSEED");
  out.write(5, OdDbHandle(0x2FF));
  out.write(9, "$EXTMIN");
  out.writePoint(10, -1.5, 0.0, 1e-300);
  out.write(9, "$INSUNITS");
  out.write(70, std::int16_t{4});
  out.write(0, "ENDSEC");
  out.write(0, "SECTION");
  out.write(2, "ENTITIES");
  out.write(0, "LINE");
  out.write(5, OdDbHandle(0x2A));
  out.write(330, OdDbHandle(0x1F));
  out.write(100, "AcDbEntity");
  out.write(8, "0");
  out.write(62, std::int16_t{-7});
  out.write(370, std::int16_t{-1});
  out.write(100, "AcDbLine");
  out.writePoint(10, 1.0, 2.0, 0.0);
  out.writePoint(11, 1e10, -2.5e-8, 0.0);
  out.write(0, "LWPOLYLINE");
  out.write(5, OdDbHandle(0x2B));
  out.write(90, std::int32_t{2});
  out.write(70, std::int16_t{1});
  out.writePoint(10, 0.0, 0.0);
  out.write(42, 1.0);
  out.writePoint(10, 4.0, 0.0);
  out.write(42, -0.41421356237309503);
  out.write(0, "TEXT");
  out.write(5, OdDbHandle(0x2C));
  out.write(1, "caf\\U+00E9 \\U+D83D\\U+DE00 \\U+DC00");
  out.write(160, std::int64_t{-1234567890123});
  out.write(290, true);
  out.writeBinary(310, chunk, sizeof chunk);
  out.write(1001, "JBCB_SEED");
  out.write(1000, "extended text");
  out.write(1005, OdDbHandle(0x2A));
  out.writeBinary(1004, chunk, 2);
  out.write(1040, 0.25);
  out.write(1070, std::int16_t{32767});
  out.write(1071, std::int32_t{-2147483647 - 1});
  out.write(0, "ENDSEC");
  out.write(0, "EOF");
}

// Prefixes of a file cut at several places, down to a few bytes.
void saveCuts(const fs::path& folder, const std::string& bytes, std::size_t from) {
  for (std::size_t divisor : {2, 3, 5, 7}) {
    std::size_t length = from + (bytes.size() - from) / divisor;
    save(folder, "seed-cut-" + std::to_string(length) + ".dxf", bytes.substr(0, length));
  }
}

void writeTextSeeds(const fs::path& folder) {
  DxfAsciiTagWriter crlf;
  writeDrawing(crlf);
  DxfAsciiTagWriter lf(DxfAsciiTagWriter::LineEnd::kLf);
  writeDrawing(lf);
  save(folder, "seed-drawing-crlf.dxf", crlf.data());
  save(folder, "seed-drawing-lf.dxf", lf.data());
  save(folder, "seed-drawing-bom.dxf", "\xEF\xBB\xBF" + lf.data());
  saveCuts(folder, lf.data(), 0);
  // One bad tag each, after a good section start.
  const std::string start = "0\nSECTION\n2\nENTITIES\n0\nLINE\n";
  save(folder, "seed-bad-code-text.dxf", start + "abc\n1\n");
  save(folder, "seed-bad-code-number.dxf", start + "10000\n1\n");
  save(folder, "seed-bad-values.dxf",
       start + "70\n12x\n10\n1e999\n5\nXYZ\n310\nABC\n290\n-\n160\n99999999999999999999\n");
  save(folder, "seed-blank-tail.dxf", start + "  \n \t\n\n");
}

// The same drawing with one-byte group codes, as binary files before R13 were written: 255
// announces a two-byte code.
std::string oneByteCodeDrawing() {
  std::string bytes(DxfBinaryTagReader::sentinel());
  const auto text = [&](unsigned char code, const char* value) {
    bytes += static_cast<char>(code);
    bytes.append(value, std::strlen(value) + 1);
  };
  text(0, "SECTION");
  text(2, "ENTITIES");
  text(0, "LINE");
  text(8, "0");
  const double x = 3.5;
  bytes += static_cast<char>(10);
  bytes.append(reinterpret_cast<const char*>(&x), sizeof x);
  bytes += "\xFF\x2F\x04";  // 255, then code 1071 and its four bytes
  bytes.append("\x01\x00\x00\x80", 4);
  text(0, "ENDSEC");
  text(0, "EOF");
  return bytes;
}

void writeBinarySeeds(const fs::path& folder) {
  DxfBinaryTagWriter out;
  writeDrawing(out);
  save(folder, "seed-drawing.dxf", out.data());
  save(folder, "seed-one-byte-codes.dxf", oneByteCodeDrawing());
  saveCuts(folder, out.data(), DxfBinaryTagReader::sentinel().size());
}

// Vertex count, then x, y, bulge per vertex, then query points.
std::string contour(unsigned char vertexCount, std::initializer_list<double> values) {
  std::string bytes(1, static_cast<char>(vertexCount));
  for (double v : values)
    bytes.append(reinterpret_cast<const char*>(&v), sizeof v);
  return bytes;
}

void writeContourSeeds(const fs::path& folder) {
  save(folder, "seed-square.bin",
       contour(4, {0, 0, 0, 10, 0, 0, 10, 10, 0, 0, 10, 0, 5, 5, 20, 5, 10, 5, 0, 10}));
  save(folder, "seed-arcs.bin",
       contour(3, {0, 0, 1, 4, 0, -0.5, 4, 4, 0.2, 2, -1.9, 2, 2, 4.1, 2, 5, 5}));
  save(folder, "seed-degenerate.bin", contour(3, {1, 1, 0, 1, 1, 1, 1, 1, -1, 1, 1, 0, 2}));
}

// A block with a line shown twice in model space, one showing itself through a second block, an
// extension record and a graph of every element class in the named-objects dictionary.
OdDbDatabasePtr moduleDrawing(bool withCycle) {
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  OdDbObjectPtr tableObject = db->getBlockTableId().safeOpenObject(OdDb::kForWrite);
  auto* table = static_cast<OdDbSymbolTable*>(tableObject.get());
  OdDbBlockTableRecordPtr part = OdDbBlockTableRecord::createObject();
  part->setName("PART");
  const OdDbObjectId partId = table->add(part.get());
  OdDbLinePtr line = OdDbLine::createObject();
  line->setEndPoint(OdGePoint3d(10, 5, 0));
  part->appendOdDbEntity(line.get());
  OdDbObjectPtr modelObject = db->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
  auto* model = static_cast<OdDbBlockTableRecord*>(modelObject.get());
  for (int i = 0; i < 2; ++i) {
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(partId);
    reference->setPosition(OdGePoint3d(20.0 * i, 0, 0));
    model->appendOdDbEntity(reference.get());
  }
  if (withCycle) {
    OdDbBlockTableRecordPtr outer = OdDbBlockTableRecord::createObject();
    outer->setName("OUTER");
    const OdDbObjectId outerId = table->add(outer.get());
    OdDbBlockReferencePtr in = OdDbBlockReference::createObject();
    in->setBlockTableRecord(outerId);
    part->appendOdDbEntity(in.get());
    OdDbBlockReferencePtr back = OdDbBlockReference::createObject();
    back->setBlockTableRecord(partId);
    outer->appendOdDbEntity(back.get());
  }
  OdDbObjectPtr named = db->getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite);
  auto* dictionary = static_cast<OdDbDictionary*>(named.get());
  OdDbXrecordPtr record = OdDbXrecord::createObject();
  record->setFromRbChain(OdResBuf::newRb(1, "payload").get());
  dictionary->setAt("JB_SEED", record.get());
  CJbDbCustBlockGraphPtr graph = graphOfEveryElement();
  graph->SetBlockDefinitionId(partId);
  dictionary->setAt("JB_SEED_GRAPH", graph.get());
  return db;
}

void writeReaderSeeds(const fs::path& folder) {
  const std::string text = DxfFile::writeToMemory(moduleDrawing(false).get());
  save(folder, "seed-module-drawing.dxf", text);
  DxfWriteOptions binary;
  binary.binary = true;
  save(folder, "seed-module-drawing-binary.dxf",
       DxfFile::writeToMemory(moduleDrawing(false).get(), binary));
  save(folder, "seed-block-cycle.dxf", DxfFile::writeToMemory(moduleDrawing(true).get()));
  saveCuts(folder, text, 0);
  // A second copy of the entities: every one of their handles taken twice.
  const std::size_t entities = text.find("ENTITIES");
  const std::size_t end = text.find("ENDSEC", entities);
  const std::size_t body = text.find('\n', entities) + 1;
  const std::size_t close = text.rfind("  0", end);
  std::string twice = text;
  twice.insert(close, text.substr(body, close - body));
  save(folder, "seed-repeated-handles.dxf", twice);
}

void writeGraphSeeds(const fs::path& folder) {
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  CJbDbCustBlockGraphPtr graph = graphOfEveryElement();
  CJbCustBlockElementFiler dwg(db.get());
  graph->dwgOutFields(&dwg);
  const OdBinaryData& data = dwg.GetData();
  save(folder, "seed-graph-dwg.bin", std::string(1, '\0') + std::string(data.begin(), data.end()));
  DxfAsciiTagWriter tags(DxfAsciiTagWriter::LineEnd::kLf);
  DxfFileFilerPtr filer = DxfFileFiler::createObject();
  filer->setDatabase(db.get());
  filer->startWriting(&tags, true);
  filer->beginObject(nullptr);
  graph->dxfOutFields(filer.get());
  filer->endObject();
  save(folder, "seed-graph-dxf.bin", "\x01" + tags.data());
}

void writeInstanceSeeds(const fs::path& folder) {
  CJbDbCustBlockGraphPtr graph = graphOfEveryElement();
  for (int mode : {0, static_cast<int>(CJbDbCustBlockGraphInstanceContext::kNoObjectIds)}) {
    CJbDbCustBlockGraphInstanceContext context(mode, nullptr);
    save(folder, "seed-instance-" + std::to_string(mode) + ".bin",
         InstanceChainCoding::encode(graph->SaveInstance(&context).get()));
  }
}
// The storage record of the customizable drawing, as the memory filer writes it and as DXF tags.
void writeStorageSeeds(const fs::path& folder) {
  OdDbDatabasePtr db = customizableDrawing();
  const StorageRecordCoding coding(db.get());
  OdStaticRxObject<StorageRecordCoding::Recorder> recorder(coding, db.get());
  CJbDbCustBlockStorage::GetStorage(db.get(), OdDb::kForRead, false)->dwgOutFields(&recorder);
  save(folder, "seed-storage-dwg.bin", std::string(1, '\0') + recorder.bytes());
  const std::string tags = splitAtStorageRecord(DxfFile::writeToMemory(db.get())).tags;
  save(folder, "seed-storage-dxf.bin", "\x01" + tags);
}

// The customizable drawing in both DXF forms behind edits of every kind.
void writeCustomizableDrawingSeeds(const fs::path& folder) {
  OdDbDatabasePtr db = customizableDrawing();
  const std::string text = DxfFile::writeToMemory(db.get());
  DxfWriteOptions binary;
  binary.binary = true;
  const ReferenceEdit edits[] = {
      {0x00, 25.0}, {0x81, -5.0}, {0x12, 1.0}, {0x23, 900.0}, {0x41, 3.0}};
  for (std::size_t index = 0; index < std::size(edits); ++index) {
    std::string bytes(1, static_cast<char>(edits[index].choice));
    bytes.append(reinterpret_cast<const char*>(&edits[index].number), sizeof(double));
    bytes += index % 2 == 0 ? text : DxfFile::writeToMemory(db.get(), binary);
    save(folder, "seed-edit-" + std::to_string(index) + ".dxf", bytes);
  }
}
}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s CORPUS_FOLDER\n", argv[0]);
    return 2;
  }
  try {
    const fs::path root(argv[1]);
    writeTextSeeds(seedFolder(root / "fuzz_dxf_tags_ascii"));
    writeBinarySeeds(seedFolder(root / "fuzz_dxf_tags_binary"));
    writeContourSeeds(seedFolder(root / "fuzz_contour"));
    registerModuleClasses();
    writeReaderSeeds(seedFolder(root / "fuzz_dxf_reader"));
    writeGraphSeeds(seedFolder(root / "fuzz_graph_record"));
    writeInstanceSeeds(seedFolder(root / "fuzz_instance_chain"));
    CJbCustBlockStorageClasses::RxInit();
    writeStorageSeeds(seedFolder(root / "fuzz_storage_record"));
    writeCustomizableDrawingSeeds(seedFolder(root / "fuzz_customizable_drawing"));
  } catch (const std::exception& e) {
    std::fprintf(stderr, "%s\n", e.what());
    return 1;
  }
  return 0;
}
