#include "studio/panels/LayerPanel.h"

#include <QHeaderView>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"
#include "platform/host/OdQStringConversion.h"
#include "studio/document/DrawingDocument.h"

namespace {
Qt::CheckState checkState(bool checked) {
  return checked ? Qt::Checked : Qt::Unchecked;
}
}  // namespace

LayerPanel::LayerPanel(QWidget* parent) : QWidget(parent), m_tree(new QTreeWidget(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(2, 2, 2, 2);
  layout->addWidget(m_tree);
  m_tree->setColumnCount(3);
  m_tree->setHeaderLabels({tr("Layer"), tr("On"), tr("Frozen")});
  m_tree->header()->setSectionResizeMode(kName, QHeaderView::Stretch);
  m_tree->setRootIsDecorated(false);
  connect(m_tree, &QTreeWidget::itemChanged, this, &LayerPanel::apply);
}

void LayerPanel::setDocument(DrawingDocument* document) {
  if (m_document) disconnect(m_document, nullptr, this, nullptr);
  m_document = document;
  if (document) {
    // Commands may add layers. Later, not now: a switch in this panel is itself an edit, and
    // its row must outlive the signal.
    connect(document, &DrawingDocument::edited, this,
            [this]() { QTimer::singleShot(0, this, &LayerPanel::refresh); });
    connect(document, &QObject::destroyed, this, [this]() { setDocument(nullptr); });
  }
  refresh();
}

void LayerPanel::refresh() {
  m_filling = true;
  m_tree->clear();
  if (m_document) {
    OdDbDatabase* database = m_document->database();
    const OdSmartPtr<OdDbLayerTable> table = database->openObject(database->getLayerTableId());
    for (OdDbSymbolTableIteratorPtr it = table->newIterator(); !it->done(); it->step()) {
      const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::cast(it->getRecord().get());
      if (layer.isNull()) continue;
      auto* item = new QTreeWidgetItem(m_tree, {toQString(layer->getName())});
      item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
      item->setCheckState(kOn, checkState(!layer->isOff()));
      item->setCheckState(kFrozen, checkState(layer->isFrozen()));
    }
  }
  m_filling = false;
}

void LayerPanel::apply(QTreeWidgetItem* item, int column) {
  if (m_filling || !m_document || (column != kOn && column != kFrozen)) return;
  {
    OdDbDatabase* database = m_document->database();
    const OdSmartPtr<OdDbLayerTable> table = database->openObject(database->getLayerTableId());
    const OdDbObjectId id = table->getAt(fromQString(item->text(kName)));
    OdDbObjectPtr object;
    if (id.isNull() || id.openObject(object, OdDb::kForWrite) != eOk) return;
    const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::cast(object.get());
    if (layer.isNull()) return;
    const bool checked = item->checkState(column) == Qt::Checked;
    if (column == kOn)
      layer->setIsOff(!checked);
    else
      layer->setIsFrozen(checked);
  }
  m_document->notifyEdited();
}
