#include "studio/app/DrawingTab.h"

#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

#include "studio/view/DrawingView.h"

DrawingTab::DrawingTab(std::unique_ptr<DrawingDocument> document, QWidget* parent)
    : QWidget(parent),
      m_document(std::move(document)),
      m_session(m_document.get()),
      m_view(new DrawingView(m_document.get(), &m_session, this)),
      m_spaces(new QTabBar(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(m_view, 1);
  layout->addWidget(m_spaces);
  m_spaces->setShape(QTabBar::RoundedSouth);
  m_spaces->setExpanding(false);
  m_spaces->setObjectName(QStringLiteral("spaces"));
  showSpaces();
  connect(m_spaces, &QTabBar::currentChanged, this, [this](int index) {
    const std::vector<OdDbObjectId> spaces = m_document->spaces();
    if (index >= 0 && static_cast<std::size_t>(index) < spaces.size())
      m_document->setSpace(spaces[static_cast<std::size_t>(index)]);
  });
  connect(m_document.get(), &DrawingDocument::spaceChanged, this, [this]() {
    const std::vector<OdDbObjectId> spaces = m_document->spaces();
    const auto found = std::find(spaces.begin(), spaces.end(), m_document->space());
    if (found != spaces.end()) m_spaces->setCurrentIndex(static_cast<int>(found - spaces.begin()));
  });
}

DrawingTab::~DrawingTab() {
  // The view draws the drawing: it goes before the drawing does.
  delete m_view;
}

void DrawingTab::showSpaces() {
  for (const OdDbObjectId& space : m_document->spaces())
    m_spaces->addTab(m_document->spaceName(space));
}
