// Real drawings open in the studio and are saved back in the form they were read in (version,
// text or binary, code page); versions that cannot be written are saved as 2018 and say so.
// Each shows something in a view.
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <filesystem>

#include "StudioTestSupport.h"
#include "platform/dxf/DxfFileInfo.h"
#include "studio/document/CommandSession.h"
#include "studio/document/DrawingDocument.h"

namespace {
// The value of a header variable the file carried; empty when it carried none.
std::string headerValue(DrawingDocument& document, const char* name) {
  const DxfFileInfoPtr info = DxfFileInfo::of(document.database(), false);
  if (info.isNull()) return {};
  for (const DxfFileInfo::HeaderVariable& variable : info->header)
    if (variable.name == name && variable.tags.size() > 0)
      if (const auto* text = std::get_if<OdString>(&variable.tags[0].value)) return text->str();
  return {};
}

int ink(const QImage& image) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      count += qGray(image.pixel(x, y)) > 60;
  return count;
}
}  // namespace

class RealDrawings : public StudioTest {};

TEST_F(RealDrawings, OpenShowSomethingAndSaveInTheFormTheyWereReadIn) {
  const std::filesystem::path corpus(JBCB_CORPUS_DIR);
  if (!std::filesystem::is_directory(corpus))
    GTEST_SKIP() << "no DXF corpus at " << corpus << "; the real-file checks are skipped";
  QTemporaryDir saved;
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(corpus)) {
    if (entry.path().extension() != ".dxf") continue;
    const QString path = QString::fromStdString(entry.path().string());
    const QString name = QFileInfo(path).fileName();
    SCOPED_TRACE(name.toStdString());
    ++files;
    std::unique_ptr<DrawingDocument> document = DrawingDocument::open(path);
    const bool binary = name.contains("binary") || name.contains("_bin_");
    EXPECT_EQ(document->form().binary, binary);
    const bool old = name.contains("AC1009") || name.contains("r14");
    EXPECT_EQ(document->keepsForm(), !old);
    const QString form = document->formName();
    if (!old) {
      EXPECT_TRUE(form.startsWith(QString::fromStdString(headerValue(*document, "$ACADVER"))));
    }
    const std::string codePage = headerValue(*document, "$DWGCODEPAGE");
    {
      CommandSession session(document.get());
      DrawingView view(document.get(), &session);
      view.resize(400, 300);
      QImage picture(400, 300, QImage::Format_ARGB32_Premultiplied);
      view.render(&picture);
      EXPECT_GT(ink(picture), 20);
    }
    document->saveAs(saved.filePath(name));
    EXPECT_FALSE(document->isModified());
    std::unique_ptr<DrawingDocument> again = DrawingDocument::open(saved.filePath(name));
    EXPECT_EQ(again->formName(), form);
    if (!codePage.empty()) {
      EXPECT_EQ(headerValue(*again, "$DWGCODEPAGE"), codePage);
    }
  }
  EXPECT_GT(files, 0) << "the corpus folder holds no DXF file";
}
