// A drawing as a tab of the main window: its view above a bar of its spaces (model space and
// the layouts), and the command session that runs commands on it. The tab owns the drawing.
#pragma once

#include <QWidget>
#include <memory>

#include "studio/document/CommandSession.h"
#include "studio/document/DrawingDocument.h"

class DrawingView;
class QTabBar;

class DrawingTab : public QWidget {
  Q_OBJECT

 public:
  explicit DrawingTab(std::unique_ptr<DrawingDocument> document, QWidget* parent = nullptr);
  ~DrawingTab() override;

  DrawingDocument* document() const { return m_document.get(); }
  CommandSession* session() { return &m_session; }
  DrawingView* view() const { return m_view; }

 private:
  void showSpaces();

  std::unique_ptr<DrawingDocument> m_document;
  CommandSession m_session;
  DrawingView* m_view;
  QTabBar* m_spaces;
};
