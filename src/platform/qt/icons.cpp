#include "platform/qt/icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <array>
#include <sstream>

namespace {

constexpr double kGrid = 24;
constexpr double kPen = 1.6;
constexpr QRgb kTile = qRgb(0x2B, 0x66, 0xA8);

QPainterPath PathOf(std::string_view drawing) {
  QPainterPath path;
  std::istringstream in{std::string(drawing)};
  const auto point = [&in] {
    QPointF read;
    in >> read.rx() >> read.ry();
    return read;
  };
  for (char step = 0; in >> step;) {
    if (step == 'M') path.moveTo(point());
    if (step == 'L') path.lineTo(point());
    if (step == 'Z') path.closeSubpath();
    if (step == 'C') {
      const std::array points{point(), point(), point()};
      path.cubicTo(points[0], points[1], points[2]);
    }
    if (step == 'O') {
      const QPointF centre = point();
      double radius = 0;
      in >> radius;
      path.addEllipse(centre, radius, radius);
    }
  }
  return path;
}

class LineIcon : public QIconEngine {
 public:
  explicit LineIcon(StringView name)
      : path_(PathOf(IconDrawing(name))), tiled_(name == u"application") {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const int side = std::min(rect.width(), rect.height());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.x() + (rect.width() - side) / 2.,
                       rect.y() + (rect.height() - side) / 2.);
    painter->scale(side / kGrid, side / kGrid);
    if (tiled_) {
      painter->setPen(Qt::NoPen);
      painter->setBrush(QColor(kTile));
      painter->drawRoundedRect(QRectF(0.5, 0.5, 23, 23), 5, 5);
    }
    painter->setPen(QPen(Ink(mode), tiled_ ? 2 : kPen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(path_);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new LineIcon(*this); }

 private:
  QColor Ink(QIcon::Mode mode) const {
    if (tiled_) return Qt::white;
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
      case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::WindowText);
      case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
      default:
        return palette.color(QPalette::Active, QPalette::WindowText);
    }
  }

  QPainterPath path_;
  bool tiled_;
};

}  // namespace

QIcon NamedIcon(const String& name) {
  return IconDrawing(name).empty() ? QIcon() : QIcon(new LineIcon(name));
}
