// Entities shown in one colour over a view's picture, as a selection and a dragging preview are
// shown: the renderer draws them into a clear layer, which is then coloured wherever it holds
// ink and laid over the picture. The layer covers only the part of the view they reach.
#pragma once

#include <QColor>
#include <QImage>
#include <QTransform>
#include <functional>

class QPainter;

class EntityHighlight {
 public:
  explicit EntityHighlight(const QColor& color) : m_color(color) {}

  // Draws `ink` (which paints under the view it is given) into the layer over `area` of the
  // view, colours it and lays it on `painter`.
  void draw(QPainter& painter, const QRect& area, const QTransform& view,
            const std::function<void(QPainter&, const QTransform&)>& ink);

 private:
  QColor m_color;
  QImage m_layer;
};
