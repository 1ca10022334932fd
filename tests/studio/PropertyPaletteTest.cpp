// The palette edits the selected door in place: the rotation's spin box turns it, the layer's
// drop-down moves it to another layer, the position line moves it and refuses what is not a
// point as it is typed; a module's property extension reads and changes an element of a graph
// and refuses what the element refuses.
#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QtTest/QTest>
#include <cmath>

#include "StudioTestSupport.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"
#include "platform/host/CJbCustBlockElementUtilsPE.h"
#include "platform/rx/OdRxClass.h"
#include "studio/document/DrawingDocument.h"
#include "studio/document/ExtensionPropertySource.h"
#include "studio/panels/PropertyPalette.h"

class PaletteEditing : public StudioTest {
 protected:
  void SetUp() override {
    openDemo();
    {
      OdDbDatabase* database = document->database();
      OdSmartPtr<OdDbLayerTable> layers(
          database->getLayerTableId().safeOpenObject(OdDb::kForWrite));
      OdDbLayerTableRecordPtr walls = OdDbLayerTableRecord::createObject();
      walls->setName("Walls");
      layers->add(walls.get());
    }
    document->select({entity(kFirstDoor)});
    QApplication::processEvents();
  }

  template <class Editor>
  Editor* editor(const char* name) const {
    return window->palette()->findChild<Editor*>(QLatin1String(name));
  }
  OdDbBlockReferencePtr door() const {
    return OdDbBlockReferencePtr(entity(kFirstDoor).safeOpenObject());
  }
  // Types into an editor and presses Enter, as a person does.
  static void type(QWidget* editor, const QString& text) {
    editor->setFocus();
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
  }
};

TEST_F(PaletteEditing, SpinBoxesAndDropDownsChangeTheReference) {
  QDoubleSpinBox* rotation = editor<QDoubleSpinBox>("Rotation");
  ASSERT_NE(rotation, nullptr);
  type(rotation, "90");
  EXPECT_NEAR(door()->rotation(), M_PI / 2, 1e-9);
  EXPECT_TRUE(document->isModified());
  // Letters never reach the value.
  rotation = editor<QDoubleSpinBox>("Rotation");
  ASSERT_NE(rotation, nullptr);
  EXPECT_DOUBLE_EQ(rotation->value(), 90);
  type(rotation, "abc");
  EXPECT_NEAR(door()->rotation(), M_PI / 2, 1e-9);

  QComboBox* layer = editor<QComboBox>("Layer");
  ASSERT_NE(layer, nullptr);
  EXPECT_EQ(layer->currentText(), "0");
  ASSERT_EQ(layer->count(), 2);
  QTest::keyClick(layer, Qt::Key_Down);
  QApplication::processEvents();
  EXPECT_EQ(door()->layer(), "Walls");
  // Read-only values are shown, not edited.
  EXPECT_EQ(editor<QLineEdit>("Handle"), nullptr);
}

TEST_F(PaletteEditing, ThePositionLineTakesPointsOnly) {
  QLineEdit* position = editor<QLineEdit>("Position");
  ASSERT_NE(position, nullptr);
  EXPECT_EQ(position->text(), "0, 0, 0");
  type(position, "100, x");
  EXPECT_EQ(door()->position(), OdGePoint3d(0, 0, 0));
  EXPECT_FALSE(document->isModified());
  position = editor<QLineEdit>("Position");
  type(position, "100, 250");
  EXPECT_EQ(door()->position(), OdGePoint3d(100, 250, 0));
  // The palette lists the new value after the edit.
  EXPECT_EQ(editor<QLineEdit>("Position")->text(), "100, 250, 0");
}

TEST_F(PaletteEditing, APropertyExtensionChangesAnElementOfAGraphWithinItsRules) {
  OdDbObjectId graph;
  for (const OdDbObjectId& id : document->database()->objectIds()) {
    OdDbObjectPtr object;
    if (id.openObject(object) == eOk && object->isA()->name() == "JbDbCustBlockGraph") {
      graph = id;
      break;
    }
  }
  ASSERT_FALSE(graph.isNull());
  const auto element = [](unsigned index) {
    return [index](OdDbObject* container) {
      const auto utilities = CJbCustBlockElementUtilsPE::cast(
          container->isA()->getX(CJbCustBlockElementUtilsPE::desc()).get());
      const OdArray<OdRxObjectPtr> parts = utilities->GetParts(container);
      return index < parts.length() ? parts[index] : OdRxObjectPtr();
    };
  };
  const std::unique_ptr<ExtensionPropertySource> first =
      ExtensionPropertySource::of(graph, element(0));
  const std::unique_ptr<ExtensionPropertySource> second =
      ExtensionPropertySource::of(graph, element(1));
  ASSERT_TRUE(first && second);
  const OdString secondName = second->value("Name")->getString();
  EXPECT_FALSE(first->setValue("Name", *OdResBuf::newRb(OdResBuf::kRtString, secondName)));
  EXPECT_TRUE(first->setValue("Name", *OdResBuf::newRb(OdResBuf::kRtString, "Renamed")));
  EXPECT_EQ(first->value("Name")->getString(), "Renamed");
  const bool visible = first->value("Visible")->getBool();
  EXPECT_TRUE(first->setValue("Visible", *OdResBuf::newRb(OdResBuf::kDxfBool, !visible)));
  EXPECT_EQ(first->value("Visible")->getBool(), !visible);
  EXPECT_FALSE(first->setValue("Id", *OdResBuf::newRb(OdResBuf::kRtInt32, 99)));
  // A part that is not there has no extension to ask.
  EXPECT_EQ(ExtensionPropertySource::of(graph, element(1000)), nullptr);
}
