#include "gui/picture.h"

#include <QHideEvent>
#include <QImage>
#include <QPainter>
#include <QTimer>
#include <algorithm>

#include "gui/widgets.h"

namespace gui {

// The surface behind `Picture`. What is drawn lands in a buffer that lives only while the
// surface is on screen; hiding the surface (or its page) drops it.
class PictureView : public QWidget {
  public:
    QColor back = QColor(0xE0, 0xE0, 0xE0);
    QColor fore = Qt::black;
    double scaleWidth = 1.0;
    double scaleHeight = 1.0;

    void Box(double x1, double y1, double x2, double y2) {
        if (!isVisible()) return;  // nothing stays of a drawing nobody could see
        if (buffer_.size() != size()) {
            buffer_ = QImage(size(), QImage::Format_RGB32);
            buffer_.fill(back);
        }
        const int left = ToPixelX(qMin(x1, x2));
        const int right = ToPixelX(qMax(x1, x2));
        const int top = ToPixelY(qMin(y1, y2));
        const int bottom = ToPixelY(qMax(y1, y2));
        // Boxes come by the thousand in an auto split: fill the pixels directly and
        // let one repaint show them all.
        const QRgb colour = fore.rgb();
        uchar* bits = buffer_.bits();
        const qsizetype stride = buffer_.bytesPerLine();
        for (int y = top; y <= bottom; ++y) {
            auto* line = reinterpret_cast<QRgb*>(bits + y * stride);
            std::fill(line + left, line + right + 1, colour);
        }
        if (!repaintPending_) {
            repaintPending_ = true;
            update();
        }
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        repaintPending_ = false;
        QPainter p(this);
        if (buffer_.isNull())
            p.fillRect(rect(), back);
        else
            p.drawImage(0, 0, buffer_);
    }
    void hideEvent(QHideEvent* event) override {
        buffer_ = QImage();
        repaintPending_ = false;
        QWidget::hideEvent(event);
    }

  private:
    int ToPixelX(double x) const {
        return qBound(0, static_cast<int>(x * width() / scaleWidth), width() - 1);
    }
    int ToPixelY(double y) const {
        return qBound(0, static_cast<int>(y * height() / scaleHeight), height() - 1);
    }
    QImage buffer_;
    bool repaintPending_ = false;
};

void Picture::create(Control& parent, const QString& name, const Look& look, double scaleWidth,
                     double scaleHeight) {
    view_ = new PictureView;
    adopt(view_, parent, name, look);
    view_->scaleWidth = scaleWidth;
    view_->scaleHeight = scaleHeight;
    if (look.back != kDefaultColour) view_->back = detail::ColourOf(look.back);
    if (look.fore != kDefaultColour) view_->fore = detail::ColourOf(look.fore);
    view_->setAttribute(Qt::WA_OpaquePaintEvent);
}

void Picture::setForeColor(int colour) {
    view_->fore = QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

double Picture::ScaleHeight() const {
    return view_->scaleHeight;
}

void Picture::Line(double x1, double y1, double x2, double y2) {
    view_->Box(x1, y1, x2, y2);
}

void Picture::setDescription(std::function<QString()> describe) {
    const bool pending = static_cast<bool>(describe_);
    describe_ = std::move(describe);
    if (pending) return;
    QTimer::singleShot(0, widget_, [this] {
        widget_->setAccessibleDescription(describe_());
        describe_ = nullptr;
    });
}

}  // namespace gui
