#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTranslator>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/host/CJbConstraintUtils.h"
#include "platform/host/CJbCustBlockConverterUtils.h"
#include "platform/host/CJbCustBlockUtils.h"
#include "platform/host/CJbScopedService.h"
#include "platform/host/CJbSystemServices.h"
#include "platform/host/CJbTranslator.h"
#include "platform/host/CJbUtils.h"
#include "platform/host/OdQStringConversion.h"

namespace {
class CapturedMessages : public CJbSystemServices {
 public:
  std::vector<std::pair<MessageKind, OdString>> shown;

 protected:
  void Show(MessageKind kind, const OdString& text) override { shown.emplace_back(kind, text); }
};

class BracketTranslator : public CJbTranslator {
 public:
  OdString Translate(const char* context, const char* text) const override {
    return OdString("[") + context + "] " + text;
  }
};

// Translates one context into upper case, as a loaded translation file would.
class UpperCaseQtTranslator : public QTranslator {
 public:
  QString translate(const char* context, const char* sourceText, const char*, int) const override {
    if (QByteArray(context) != "customizable_blocks") return QString();
    return QString::fromUtf8(sourceText).toUpper();
  }
  bool isEmpty() const override { return false; }
};

// A host that converts, solves and knows one reference's dynamic block.
class RecordingHost : public CJbCustBlockConverterUtils,
                      public CJbConstraintUtils,
                      public CJbUtils {
 public:
  std::vector<OdDbObjectId> converted;
  std::vector<OdDbObjectId> solved;
  OdDbObjectId from;
  OdDbObjectId to;
  void RemoveOutsideData(const OdDbObjectId& blockId) override { converted.push_back(blockId); }
  void UpdateConstraints(const OdDbObjectId& blockId) override { solved.push_back(blockId); }

 protected:
  OdDbObjectId LookupDynBlockId(const OdDbObjectId& blockRefId) const override {
    return blockRefId == from ? to : OdDbObjectId();
  }
};

template <class T>
OdDbObjectId fakeId(T& slot) {
  return OdDbObjectId(reinterpret_cast<OdDbStub*>(&slot));
}
template <class T>
OdDbDatabase* fakeDatabase(T& slot) {
  return reinterpret_cast<OdDbDatabase*>(&slot);
}
}  // namespace

TEST(HostTranslation, FallsBackToTheSourceTextAndFollowsQtTranslators) {
  ASSERT_EQ(QCoreApplication::instance(), nullptr);
  EXPECT_EQ(odTranslate("customizable_blocks", "Fläche"), "Fläche");
  EXPECT_TRUE(odTranslate("customizable_blocks", nullptr).isEmpty());

  int argc = 1;
  char name[] = "host_services_test";
  char* argv[] = {name, nullptr};
  QCoreApplication app(argc, argv);
  UpperCaseQtTranslator upper;
  QCoreApplication::installTranslator(&upper);
  EXPECT_EQ(odTranslate("customizable_blocks", "Fläche"), "FLÄCHE");
  EXPECT_EQ(odTranslate("custblock_element", "Fläche"), "Fläche");  // not in that file
  QCoreApplication::removeTranslator(&upper);

  // Qt speaks UTF-16 and the platform UTF-8; nothing may be lost in between.
  const OdString text("⌀ 30° Größe");
  EXPECT_EQ(toQString(text).size(), 11);
  EXPECT_EQ(fromQString(toQString(text)), text);
  EXPECT_TRUE(fromQString(QString()).isEmpty());
}

TEST(HostServiceReplacement, GuardsInstallAndRestoreInNestedOrder) {
  CJbTranslator* const embedded = CJbTranslator::Get();
  BracketTranslator outer;
  BracketTranslator inner;
  {
    CJbScopedService<CJbTranslator> outerGuard(&outer);
    EXPECT_EQ(odTranslate("ctx", "Text"), "[ctx] Text");
    {
      CJbScopedService<CJbTranslator> innerGuard(&inner);
      EXPECT_EQ(CJbTranslator::Get(), &inner);
    }
    EXPECT_EQ(CJbTranslator::Get(), &outer);
  }
  EXPECT_EQ(CJbTranslator::Get(), embedded);
  EXPECT_EQ(odTranslate("ctx", "Text"), "Text");

  // A scope left by an exception restores as well.
  CapturedMessages captured;
  try {
    CJbScopedService<CJbSystemServices> guard(&captured);
    throw std::runtime_error("leaving early");
  } catch (const std::runtime_error&) {
  }
  EXPECT_NE(CJbSystemServices::Get(), &captured);
  EXPECT_EQ(CJbSystemServices::Set(nullptr), nullptr);  // nothing was left installed
}

TEST(HostMessages, EmbeddedServicesWriteOneLinePerMessageWithItsKind) {
  std::ostringstream out;
  CJbSystemServices services(out);
  services.ShowMessage("Number of reset blocks due to incompatible changes: 2.");
  services.ShowWarning("drawing is read-only");
  services.ShowError("cannot open file");
  EXPECT_EQ(out.str(),
            "Number of reset blocks due to incompatible changes: 2.\n"
            "Warning: drawing is read-only\n"
            "Error: cannot open file\n");
}

TEST(HostCustBlockUtils, NewerFormatIsKeptPerDatabaseUntilForgotten) {
  CapturedMessages captured;
  CJbScopedService<CJbSystemServices> guard(&captured);
  CJbCustBlockUtils utils;
  int first = 0;
  int second = 0;

  utils.SetNewerFormatFound(fakeDatabase(first));
  utils.SetNewerFormatFound(fakeDatabase(first));
  utils.SetNewerFormatFound(nullptr);
  EXPECT_TRUE(utils.IsNewerFormatFound(fakeDatabase(first)));
  EXPECT_FALSE(utils.IsNewerFormatFound(fakeDatabase(second)));
  EXPECT_FALSE(utils.IsNewerFormatFound(nullptr));
  ASSERT_EQ(captured.shown.size(), 1u);  // one warning per drawing, not per graph read
  EXPECT_EQ(captured.shown[0].first, CJbSystemServices::MessageKind::kWarning);

  utils.Forget(fakeDatabase(first));
  EXPECT_FALSE(utils.IsNewerFormatFound(fakeDatabase(first)));
  utils.SetNewerFormatFound(fakeDatabase(first));  // a new drawing at the same address
  EXPECT_EQ(captured.shown.size(), 2u);

  CJbCustBlockUtils replacement;
  CJbScopedService<CJbCustBlockUtils> utilsGuard(&replacement);
  EXPECT_EQ(CJbCustBlockUtils::Get(), &replacement);
}

TEST(HostOptionalServices, AreAbsentUntilInstalledAndReachedThroughGet) {
  EXPECT_EQ(CJbCustBlockConverterUtils::Get(), nullptr);
  EXPECT_EQ(CJbConstraintUtils::Get(), nullptr);
  int block = 0;
  int reference = 0;
  int dynamicBlock = 0;
  EXPECT_TRUE(CJbUtils::GetDynBlockId(fakeId(reference)).isNull());

  RecordingHost services;
  services.from = fakeId(reference);
  services.to = fakeId(dynamicBlock);
  {
    CJbScopedService<CJbCustBlockConverterUtils> converterGuard(&services);
    CJbScopedService<CJbConstraintUtils> constraintGuard(&services);
    CJbScopedService<CJbUtils> utilsGuard(&services);
    CJbCustBlockConverterUtils::Get()->RemoveOutsideData(fakeId(block));
    CJbConstraintUtils::Get()->UpdateConstraints(fakeId(block));
    EXPECT_EQ(CJbUtils::GetDynBlockId(fakeId(reference)), fakeId(dynamicBlock));
    EXPECT_TRUE(CJbUtils::GetDynBlockId(fakeId(block)).isNull());
  }
  EXPECT_EQ(services.converted, std::vector<OdDbObjectId>{fakeId(block)});
  EXPECT_EQ(services.solved, std::vector<OdDbObjectId>{fakeId(block)});
  EXPECT_EQ(CJbCustBlockConverterUtils::Get(), nullptr);
  EXPECT_EQ(CJbConstraintUtils::Get(), nullptr);
  EXPECT_TRUE(CJbUtils::GetDynBlockId(fakeId(reference)).isNull());
}
