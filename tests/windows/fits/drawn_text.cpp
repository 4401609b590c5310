#include "tests/windows/fits/drawn_text.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>

namespace zol::view {
namespace {

// Paints nothing, and collects the texts.
class Notes : public QPaintEngine {
  public:
    explicit Notes(const QWidget& widget)
        : QPaintEngine(AllFeatures), whole_(widget.rect()),
          to_design_(QTransform::fromScale(1 / widget.devicePixelRatioF(),
                                           1 / widget.devicePixelRatioF())) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {
    }
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    Type type() const override { return User; }
    void drawTextItem(const QPointF& at, const QTextItem& item) override {
        const QTransform to_widget = painter()->combinedTransform() * to_design_;
        const QRectF place(at.x(), at.y() - item.ascent(), item.width(),
                           item.ascent() + item.descent());
        QRectF clip = whole_;
        if (painter()->hasClipping()) clip &= to_widget.mapRect(painter()->clipBoundingRect());
        QPainterPath letters;
        letters.addText(at, item.font(), item.text());
        texts.push_back({item.text(), to_widget.mapRect(place),
                         to_widget.mapRect(letters.boundingRect()), clip,
                         item.font().pointSizeF()});
    }

    std::vector<DrawnText> texts;

  private:
    const QRectF whole_;
    const QTransform to_design_; // from device pixels
};

class NotesDevice : public QPaintDevice {
  public:
    explicit NotesDevice(QWidget& widget) : notes(widget), widget_(widget) {}
    QPaintEngine* paintEngine() const override { return &notes; }

    mutable Notes notes;

  private:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth: return static_cast<int>(widget_.width() * widget_.devicePixelRatioF());
        case PdmHeight: return static_cast<int>(widget_.height() * widget_.devicePixelRatioF());
        case PdmWidthMM: return widget_.widthMM();
        case PdmHeightMM: return widget_.heightMM();
        case PdmDpiX: return widget_.logicalDpiX();
        case PdmDpiY: return widget_.logicalDpiY();
        case PdmPhysicalDpiX: return widget_.physicalDpiX();
        case PdmPhysicalDpiY: return widget_.physicalDpiY();
        case PdmDevicePixelRatio: return static_cast<int>(widget_.devicePixelRatio());
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(widget_.devicePixelRatioF() * devicePixelRatioFScale());
        case PdmDepth: return widget_.depth();
        case PdmNumColors: return widget_.colorCount();
        }
        return 0;
    }

    QWidget& widget_;
};

} // namespace

std::vector<DrawnText> drawn_texts(QWidget& widget) {
    NotesDevice device(widget);
    widget.render(&device, {}, {}, {});
    return device.notes.texts;
}

} // namespace zol::view
