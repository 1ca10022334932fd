// The properties palette: the values of the selected entity group by group, each edited in place
// by a widget that fits its type (a drop-down for a value limited to choices, spin boxes for
// numbers and angles in degrees, a check box for yes or no, a line for text and for points that
// refuses anything but numbers as it is typed). A value the object refuses puts the old one
// back, with a message that says so. Editors are named after their property.
#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>
#include <vector>

#include "studio/document/PropertySource.h"

class DrawingDocument;
class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

class PropertyPalette : public QWidget {
  Q_OBJECT

 public:
  explicit PropertyPalette(QWidget* parent = nullptr);
  ~PropertyPalette() override;

  // Follows the selection of `document`; none shows an empty palette.
  void setDocument(DrawingDocument* document);

 signals:
  void message(const QString& text);

 private:
  using Property = PropertySource::Property;

  // Lists the selection's properties again once the current event is done, so that an editor
  // whose signal caused it is not deleted under its own feet.
  void scheduleRefresh();
  void refresh();
  QWidget* editorFor(PropertySource& source, const Property& property, const OdResBuf* value);
  QWidget* choiceEditor(PropertySource& source, const Property& property, const OdResBuf* value,
                        const OdArray<OdResBufPtr>& choices);
  QWidget* numberEditor(PropertySource& source, const Property& property, const OdResBuf& value);
  QWidget* textEditor(PropertySource& source, const Property& property, const OdResBuf& value);
  void commit(PropertySource& source, const Property& property, const OdResBufPtr& value);

  DrawingDocument* m_document = nullptr;
  QTreeWidget* m_tree;
  QLabel* m_summary;
  std::vector<std::unique_ptr<PropertySource>> m_sources;
  std::vector<QPointer<QWidget>> m_editors;
  bool m_refreshPending = false;
};
