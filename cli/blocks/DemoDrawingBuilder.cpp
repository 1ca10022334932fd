#include "cli/blocks/DemoDrawingBuilder.h"

#include "cli/blocks/CustomBlockEditor.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbText.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

namespace {
// Vertical distance between rows, and how far below its row a caption stands.
constexpr double kRowPitch = 2900;
constexpr double kCaptionDrop = 1300;
constexpr double kCaptionHeight = 100;
}  // namespace

DemoDrawingBuilder::DemoDrawingBuilder() : m_blocks(DemoBlock::All()) {}

DemoDrawingBuilder::~DemoDrawingBuilder() = default;

OdDbDatabasePtr DemoDrawingBuilder::build() {
  OdDbDatabasePtr database = OdDbDatabase::createObject();
  database->setINSUNITS(4);  // millimetres
  m_placements.clear();
  double y = 0;
  for (const auto& block : m_blocks) {
    CJbCustBlockAuthor author(database.get(), block->name());
    block->author(author);
    placeRow(database.get(), *block, author.Finish(), y);
    y -= kRowPitch;
  }
  CustomBlockEditor editor(database.get());
  for (Placement& placement : m_placements) {
    if (placement.edits.empty()) continue;
    for (const CustomBlockEditor::Change& change : editor.set(placement.reference, placement.edits))
      placement.results.push_back(change.value);
  }
  return database;
}

void DemoDrawingBuilder::placeRow(OdDbDatabase* database, const DemoBlock& block,
                                  const OdDbObjectId& blockId, double y) {
  OdDbBlockTableRecordPtr modelSpace(database->getModelSpaceId().safeOpenObject(OdDb::kForWrite));
  OdDbTextPtr caption = OdDbText::createObject();
  caption->setPosition(OdGePoint3d(0, y - kCaptionDrop, 0));
  caption->setHeight(kCaptionHeight);
  caption->setTextString(block.name() + ": " + OdString(block.description().c_str()));
  modelSpace->appendOdDbEntity(caption.get());
  double x = 0;
  for (const DemoBlock::Edits& edits : block.references()) {
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(blockId);
    reference->setPosition(OdGePoint3d(x, y, 0));
    Placement placement{block.name().str(),
                        modelSpace->appendOdDbEntity(reference.get()),
                        OdGePoint3d(x, y, 0),
                        edits,
                        {}};
    m_placements.push_back(placement);
    x += block.spacing();
  }
}
