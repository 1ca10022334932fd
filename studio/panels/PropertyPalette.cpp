#include "studio/panels/PropertyPalette.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <cmath>
#include <limits>

#include "platform/ge/OdGeConstants.h"
#include "platform/host/OdQStringConversion.h"
#include "studio/document/DrawingDocument.h"
#include "studio/document/PropertySheet.h"
#include "studio/panels/PropertyText.h"

namespace {
constexpr double kDegreesPerRadian = OdGeConstants::kDegreesPerRadian;
// Widest span a number spin box offers: drawings in millimetres reach kilometres.
constexpr double kLargestNumber = 1e12;

bool isNumber(int type) {
  return type == OdResBuf::kRtDouble || type == OdResBuf::kRtAngle || type == OdResBuf::kRtInt16 ||
         type == OdResBuf::kRtInt32;
}
}  // namespace

PropertyPalette::PropertyPalette(QWidget* parent)
    : QWidget(parent), m_tree(new QTreeWidget(this)), m_summary(new QLabel(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(2, 2, 2, 2);
  layout->addWidget(m_summary);
  layout->addWidget(m_tree);
  m_tree->setColumnCount(2);
  m_tree->setHeaderLabels({tr("Property"), tr("Value")});
  m_tree->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  m_tree->setRootIsDecorated(false);
  m_tree->setSelectionMode(QAbstractItemView::NoSelection);
  refresh();
}

PropertyPalette::~PropertyPalette() = default;

void PropertyPalette::setDocument(DrawingDocument* document) {
  if (m_document) disconnect(m_document, nullptr, this, nullptr);
  m_document = document;
  if (document) {
    connect(document, &DrawingDocument::selectionChanged, this, &PropertyPalette::scheduleRefresh);
    connect(document, &DrawingDocument::edited, this, &PropertyPalette::scheduleRefresh);
    connect(document, &QObject::destroyed, this, [this]() { setDocument(nullptr); });
  }
  scheduleRefresh();
}

void PropertyPalette::scheduleRefresh() {
  if (m_refreshPending) return;
  m_refreshPending = true;
  QTimer::singleShot(0, this, &PropertyPalette::refresh);
}

void PropertyPalette::refresh() {
  m_refreshPending = false;
  // The tree deletes old editors later, in a posted event; until then they must not commit (a
  // spin box that loses the focus says it finished editing).
  for (QWidget* editor : m_editors) {
    if (!editor) continue;
    editor->disconnect(this);
    editor->setObjectName(QString());
  }
  m_editors.clear();
  m_tree->clear();
  m_sources.clear();
  const std::size_t selected = m_document ? m_document->selection().size() : 0;
  m_summary->setText(selected == 0 ? tr("No selection") : tr("%1 selected").arg(selected));
  if (!m_document) return;
  m_sources = PropertySheet::of(m_document->selection());
  for (const std::unique_ptr<PropertySource>& source : m_sources) {
    auto* group = new QTreeWidgetItem(m_tree, {source->group()});
    group->setFirstColumnSpanned(true);
    QFont bold = group->font(0);
    bold.setBold(true);
    group->setFont(0, bold);
    for (const Property& property : source->properties()) {
      auto* row = new QTreeWidgetItem(group, {source->label(property)});
      const OdResBufPtr value = source->value(property.name);
      m_tree->setItemWidget(row, 1, editorFor(*source, property, value.get()));
    }
    group->setExpanded(true);
  }
}

QWidget* PropertyPalette::editorFor(PropertySource& source, const Property& property,
                                    const OdResBuf* value) {
  QWidget* editor = nullptr;
  const OdArray<OdResBufPtr> choices =
      property.readOnly ? OdArray<OdResBufPtr>() : source.choices(property.name);
  if (!value || property.readOnly)
    editor = new QLabel(PropertyText::of(value));
  else if (!choices.isEmpty())
    editor = choiceEditor(source, property, value, choices);
  else if (isNumber(property.valueType) && value->restype() == property.valueType)
    editor = numberEditor(source, property, *value);
  else
    editor = textEditor(source, property, *value);
  editor->setObjectName(toQString(property.name));
  m_editors.push_back(editor);
  return editor;
}

QWidget* PropertyPalette::choiceEditor(PropertySource& source, const Property& property,
                                       const OdResBuf* value, const OdArray<OdResBufPtr>& choices) {
  auto* box = new QComboBox;
  const QString current = PropertyText::of(value);
  for (const OdResBufPtr& choice : choices)
    box->addItem(PropertyText::of(choice.get()));
  box->setCurrentIndex(box->findText(current));
  connect(box, QOverload<int>::of(&QComboBox::activated), this,
          [this, &source, property, choices](int index) {
            if (index >= 0 && static_cast<unsigned>(index) < choices.length())
              commit(source, property, choices[static_cast<unsigned>(index)]);
          });
  return box;
}

QWidget* PropertyPalette::numberEditor(PropertySource& source, const Property& property,
                                       const OdResBuf& value) {
  const int type = property.valueType;
  if (type == OdResBuf::kRtInt16 || type == OdResBuf::kRtInt32) {
    auto* spin = new QSpinBox;
    spin->setRange(type == OdResBuf::kRtInt16 ? std::numeric_limits<std::int16_t>::min()
                                              : std::numeric_limits<int>::min(),
                   type == OdResBuf::kRtInt16 ? std::numeric_limits<std::int16_t>::max()
                                              : std::numeric_limits<int>::max());
    spin->setValue(value.getInt32());
    const int shown = spin->value();
    connect(spin, &QSpinBox::editingFinished, this, [this, &source, property, spin, shown]() {
      if (spin->value() != shown)
        commit(source, property, OdResBuf::newRb(property.valueType, spin->value()));
    });
    return spin;
  }
  auto* spin = new QDoubleSpinBox;
  const bool angle = type == OdResBuf::kRtAngle;
  const double scale = angle ? kDegreesPerRadian : 1.0;
  spin->setDecimals(angle ? 4 : 6);
  spin->setRange(angle ? -360.0 : -kLargestNumber, angle ? 360.0 : kLargestNumber);
  if (angle) spin->setSuffix(QString(QChar(0x00B0)));
  spin->setValue(value.getDouble() * scale);
  const double shown = spin->value();
  connect(spin, &QDoubleSpinBox::editingFinished, this,
          [this, &source, property, spin, shown, scale]() {
            if (spin->value() != shown)
              commit(source, property, OdResBuf::newRb(property.valueType, spin->value() / scale));
          });
  return spin;
}

QWidget* PropertyPalette::textEditor(PropertySource& source, const Property& property,
                                     const OdResBuf& value) {
  if (property.valueType == OdResBuf::kDxfBool) {
    auto* box = new QCheckBox;
    box->setChecked(value.getBool());
    connect(box, &QCheckBox::toggled, this, [this, &source, property](bool checked) {
      commit(source, property, OdResBuf::newRb(OdResBuf::kDxfBool, checked));
    });
    return box;
  }
  auto* line = new QLineEdit(PropertyText::of(&value));
  const bool point = property.valueType == OdResBuf::kRtPoint3d;
  if (point)
    line->setValidator(
        new QRegularExpressionValidator(QRegularExpression(PropertyText::pointPattern()), line));
  const QString shown = line->text();
  connect(line, &QLineEdit::editingFinished, this, [this, &source, property, line, shown, point]() {
    if (line->text() == shown) return;
    OdGePoint3d at;
    if (!point)
      commit(source, property, OdResBuf::newRb(OdResBuf::kRtString, fromQString(line->text())));
    else if (PropertyText::parsePoint(line->text(), at))
      commit(source, property, OdResBuf::newRb(OdResBuf::kRtPoint3d, at));
  });
  return line;
}

void PropertyPalette::commit(PropertySource& source, const Property& property,
                             const OdResBufPtr& value) {
  const QString label = source.label(property);
  if (!m_document || !source.setValue(property.name, *value)) {
    emit message(tr("%1 cannot be %2.").arg(label, PropertyText::of(value.get())));
    scheduleRefresh();
    return;
  }
  m_document->notifyEdited(m_document->selection());
}
