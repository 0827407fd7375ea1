#include "gui/widgets.h"

#include <QDir>
#include <QFontDatabase>
#include <QHash>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QSvgRenderer>

namespace gui::detail {

namespace {

// The form's font where the machine has it, else a sans serif of similar width. Families the
// machine lacks are left out once here: for a missing first family Qt searches the system's
// fallbacks again for every size, which costs more at start than all the rest of the fonts.
QStringList FormFamilies() {
    const QStringList wanted{QStringLiteral("MS Sans Serif"), QStringLiteral("Liberation Sans"),
                             QStringLiteral("Arial"), QStringLiteral("DejaVu Sans")};
    const QStringList onMachine = QFontDatabase::families();
    QStringList present;
    for (const QString& family : wanted)
        if (onMachine.contains(family, Qt::CaseInsensitive)) present.append(family);
    present.append(QStringLiteral("Sans Serif"));  // the system's own, which always answers
    return present;
}

}  // namespace

QFont FontFor(const Look& look) {
    static const QStringList families = FormFamilies();
    // Controls of one look share one font, so that Qt looks each font up once.
    static QHash<QString, QFont> made;
    const QString key = QStringLiteral("%1/%2/%3").arg(look.points).arg(look.bold).arg(look.italic);
    const auto found = made.constFind(key);
    if (found != made.constEnd()) return *found;
    QFont font;
    font.setFamilies(families);
    font.setPointSizeF(look.points);
    font.setBold(look.bold);
    font.setItalic(look.italic);
    made.insert(key, font);
    return font;
}

QIcon IconSetOf(const QString& drawing) {
    // Drawn anew in each size an icon theme has, so that no size is a scaled picture.
    QSvgRenderer renderer(drawing);
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 48, 64, 128, 256}) {
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        renderer.render(&painter);
        painter.end();
        icon.addPixmap(QPixmap::fromImage(image));
    }
    return icon;
}

QPixmap PictureAt(const QString& resource, qreal pixelRatio) {
    static QHash<QString, QPixmap> drawn;
    const QString key = resource + u'@' + QString::number(pixelRatio);
    const auto found = drawn.constFind(key);
    if (found != drawn.constEnd()) return *found;
    QSvgRenderer drawing(resource);
    QImage image(drawing.defaultSize() * pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    QPixmap pixmap = QPixmap::fromImage(image);
    pixmap.setDevicePixelRatio(pixelRatio);
    drawn.insert(key, pixmap);
    return pixmap;
}

QColor ColourOf(int rgb) {
    return QColor((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
}

void ApplyColours(QWidget* widget, const Look& look, QPalette::ColorRole foreRole,
                  QPalette::ColorRole backRole) {
    if (look.fore == kDefaultColour && look.back == kDefaultColour) return;
    QPalette pal = widget->palette();
    if (look.fore != kDefaultColour) {
        pal.setColor(QPalette::Active, foreRole, ColourOf(look.fore));
        pal.setColor(QPalette::Inactive, foreRole, ColourOf(look.fore));
    }
    if (look.back != kDefaultColour) {
        pal.setColor(backRole, ColourOf(look.back));
        if (backRole == QPalette::Window) widget->setAutoFillBackground(true);
    }
    widget->setPalette(pal);
}

int KeyCodeOf(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return 13;
        case Qt::Key_Backspace:
            return 8;
        case Qt::Key_Escape:
            return 27;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return 0;
        default:
            break;
    }
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return 0;
    const QString text = event.text();
    if (text.isEmpty() || !text.at(0).isPrint()) return 0;
    return text.at(0).unicode();
}

KeyFilter::KeyFilter(QObject* parent, KeyHandler handler)
    : QObject(parent), handler_(std::move(handler)) {}

bool KeyFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && handler_) {
        const int code = KeyCodeOf(*static_cast<QKeyEvent*>(event));
        if (code != 0) {
            handler_(code);
            if (code == 13) return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

PictureButton::PictureButton(QWidget* parent) : QPushButton(parent) {}

QSize PictureButton::sizeHint() const {
    return size();
}

void PictureButton::setPicture(const QString& resource) {
    resource_ = resource;
    update();
}

void PictureButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    QStyleOptionButton opt;
    initStyleOption(&opt);
    const QString caption = opt.text;
    opt.text.clear();
    style()->drawControl(QStyle::CE_PushButton, &opt, &p, this);

    const int shift = isDown() ? 1 : 0;
    QRect area = rect().adjusted(2 + shift, 3 + shift, -2 + shift, -2 + shift);
    if (!resource_.isEmpty()) {
        QPixmap pixmap = PictureAt(resource_, devicePixelRatioF());
        if (!isEnabled()) pixmap = style()->generatedIconPixmap(QIcon::Disabled, pixmap, &opt);
        const QSize size = pixmap.deviceIndependentSize().toSize();
        const int x = area.left() + (area.width() - size.width()) / 2;
        p.drawPixmap(x, area.top(), pixmap);
        area.setTop(area.top() + size.height() + 1);
    }
    const int flags = Qt::TextWordWrap | Qt::AlignHCenter |
                      (resource_.isEmpty() ? Qt::AlignVCenter : Qt::AlignTop);
    // Text is not measured in proportion to the screen's scale: a word that just fits at one
    // scale may touch the button's edges at another. Such a word is drawn a little smaller.
    const int room = area.width() - 4;
    QFont fitted = font();
    const QStringList words = caption.split(u' ', Qt::SkipEmptyParts);
    const auto fits = [&] {
        const QFontMetrics metrics(fitted, this);
        for (const QString& word : words)
            if (metrics.horizontalAdvance(word) > room) return false;
        return true;
    };
    while (!fits() && fitted.pointSizeF() > 6.0) fitted.setPointSizeF(fitted.pointSizeF() - 0.25);
    p.setFont(fitted);
    style()->drawItemText(&p, area, flags, palette(), isEnabled(), caption, QPalette::ButtonText);
}

void PictureButton::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !(event->modifiers() & ~Qt::KeypadModifier)) {
        click();
        return;
    }
    QPushButton::keyPressEvent(event);
}

void PictureLabel::setPicture(const QString& resource) {
    resource_ = resource;
    update();
}

void PictureLabel::paintEvent(QPaintEvent*) {
    if (resource_.isEmpty()) return;
    QPainter p(this);
    p.drawPixmap(0, 0, PictureAt(resource_, devicePixelRatioF()));
}

}  // namespace gui::detail
