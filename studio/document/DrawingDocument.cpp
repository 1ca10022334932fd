#include "studio/document/DrawingDocument.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <variant>

#include "platform/base/OdError.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/dxf/DxfBinaryTagReader.h"
#include "platform/dxf/DxfFileInfo.h"
#include "platform/dxf/DxfFileVersion.h"
#include "platform/host/OdQStringConversion.h"

namespace {
// The version named by the file's "$ACADVER" header variable, which the reader keeps.
OdDb::DwgVersion versionRead(OdDbDatabase* database) {
  const DxfFileInfoPtr info = DxfFileInfo::of(database, false);
  if (info.isNull()) return OdDb::kDHL_CURRENT;
  for (const DxfFileInfo::HeaderVariable& variable : info->header) {
    if (variable.name != "$ACADVER") continue;
    const DxfKeptTags::Item* item = variable.tags.find(1);
    const OdString* name = item ? std::get_if<OdString>(&item->value) : nullptr;
    return name ? DxfFileVersion::fromName(*name) : OdDb::kDHL_CURRENT;
  }
  return OdDb::kDHL_CURRENT;
}

bool isBinaryFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return false;
  const QByteArray head = file.read(static_cast<qint64>(DxfBinaryTagReader::sentinel().size()));
  return DxfBinaryTagReader::hasSentinel(std::string_view(head.constData(), head.size()));
}
}  // namespace

std::unique_ptr<DrawingDocument> DrawingDocument::open(const QString& path) {
  OdDbDatabasePtr database = DxfFile::read(fromQString(path));
  DxfWriteOptions form;
  form.binary = isBinaryFile(path);
  const OdDb::DwgVersion version = versionRead(database.get());
  auto document = std::make_unique<DrawingDocument>(database, path, form);
  document->m_keepsForm = DxfFileVersion::isWritable(version);
  if (document->m_keepsForm) document->m_form.version = version;
  return document;
}

DrawingDocument::DrawingDocument(OdDbDatabasePtr database, const QString& path,
                                 const DxfWriteOptions& form)
    : m_database(std::move(database)),
      m_path(path),
      m_form(form),
      m_space(m_database->getModelSpaceId()) {}

DrawingDocument::~DrawingDocument() = default;

QString DrawingDocument::title() const {
  return m_path.isEmpty() ? tr("Untitled") : QFileInfo(m_path).fileName();
}

QString DrawingDocument::formName() const {
  return tr("%1 %2").arg(QString::fromLatin1(DxfFileVersion::name(m_form.version)),
                         m_form.binary ? tr("binary") : tr("text"));
}

void DrawingDocument::save() {
  DxfFile::write(m_database.get(), fromQString(m_path), m_form);
  setModified(false);
}

void DrawingDocument::saveAs(const QString& path) {
  DxfFile::write(m_database.get(), fromQString(path), m_form);
  m_path = path;
  setModified(false);
}

std::vector<OdDbObjectId> DrawingDocument::spaces() const {
  std::vector<OdDbObjectId> spaces{m_database->getModelSpaceId()};
  const OdSmartPtr<OdDbBlockTable> blocks = m_database->openObject(m_database->getBlockTableId());
  for (OdDbSymbolTableIteratorPtr it = blocks->newIterator(); !it->done(); it->step()) {
    const OdDbObjectId id = it->getRecordId();
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(it->getRecord().get());
    if (id != spaces.front() && !block.isNull() && block->isLayout()) spaces.push_back(id);
  }
  return spaces;
}

QString DrawingDocument::spaceName(const OdDbObjectId& space) const {
  const std::vector<OdDbObjectId> all = spaces();
  for (std::size_t i = 0; i < all.size(); ++i)
    if (all[i] == space) return i == 0 ? tr("Model") : tr("Layout%1").arg(i);
  return QString();
}

void DrawingDocument::setSpace(const OdDbObjectId& space) {
  if (space == m_space) return;
  m_space = space;
  m_selection.clear();
  emit selectionChanged();
  emit spaceChanged();
}

OdDbObjectId DrawingDocument::entityOf(const QString& handle) const {
  bool ok = false;
  const qulonglong value = handle.toULongLong(&ok, 16);
  if (!ok || value == 0)
    throw OdError(eInvalidInput, "\"" + handle.toStdString() + "\" is not a handle");
  const OdDbObjectId id = m_database->getOdDbObjectId(OdDbHandle(value));
  OdDbObjectPtr object;
  if (id.isNull() || id.openObject(object) != eOk)
    throw OdError(eKeyNotFound, "the drawing has no object with handle " + handle.toStdString());
  const std::vector<OdDbObjectId> all = spaces();
  if (OdDbEntity::cast(object.get()).isNull() ||
      std::find(all.begin(), all.end(), object->ownerId()) == all.end())
    throw OdError(eNotThatKindOfClass,
                  "object " + handle.toStdString() + " is no entity of model space or a layout");
  return id;
}

void DrawingDocument::select(std::vector<OdDbObjectId> entities) {
  if (entities == m_selection) return;
  m_selection = std::move(entities);
  emit selectionChanged();
}

void DrawingDocument::notifyChanged(const std::vector<OdDbObjectId>& entities) {
  emit changed(entities);
}

void DrawingDocument::notifyEdited(const std::vector<OdDbObjectId>& entities) {
  // An edit may have erased what was selected.
  std::vector<OdDbObjectId> live;
  for (const OdDbObjectId& id : m_selection)
    if (!id.isErased()) live.push_back(id);
  setModified(true);
  emit edited(entities);
  if (live != m_selection) {
    m_selection = std::move(live);
    emit selectionChanged();
  }
}

void DrawingDocument::setModified(bool modified) {
  if (modified == m_modified) return;
  m_modified = modified;
  emit modifiedChanged(modified);
}
