// Entities shown in one colour over a view's picture, as a selection and a dragging preview are
// shown: the renderer draws them into a clear layer, which is then coloured wherever it holds
// ink. The layer covers only the part of the view they reach, and is kept until painted again,
// so that a view can lay the same one over many frames.
#pragma once

#include <QColor>
#include <QImage>
#include <QTransform>
#include <functional>

class QPainter;

class EntityHighlight {
 public:
  explicit EntityHighlight(const QColor& color) : m_color(color) {}

  // Draws `ink` (which paints under the view it is given) into the layer over `area` of the view
  // and colours it.
  void paint(const QRect& area, const QTransform& view,
             const std::function<void(QPainter&, const QTransform&)>& ink);
  // Lays the layer last painted over `painter`.
  void drawOn(QPainter& painter) const;

 private:
  QColor m_color;
  QImage m_layer;
  QRect m_area;
};
