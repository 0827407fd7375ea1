#include "gui/widgets.h"

#include <QFontDatabase>
#include <QHash>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>

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

QIcon PictureOf(const QString& resource) {
    static QHash<QString, QIcon> read;
    const auto found = read.constFind(resource);
    if (found != read.constEnd()) return *found;
    const QIcon picture(resource);
    read.insert(resource, picture);
    return picture;
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

namespace {
constexpr int kPictureSize = 16;
}

PictureButton::PictureButton(QWidget* parent) : QPushButton(parent) {}

QSize PictureButton::sizeHint() const {
    return size();
}

void PictureButton::setPicture(const QString& resource) {
    resource_ = resource;
    picture_ = QIcon();
    update();
}

void PictureButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    QStyleOptionButton opt;
    initStyleOption(&opt);
    if (picture_.isNull() && !resource_.isEmpty()) picture_ = PictureOf(resource_);
    const QString caption = opt.text;
    const QIcon& picture = picture_;
    opt.text.clear();
    style()->drawControl(QStyle::CE_PushButton, &opt, &p, this);

    const int shift = isDown() ? 1 : 0;
    QRect area = rect().adjusted(2 + shift, 3 + shift, -2 + shift, -2 + shift);
    const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
    if (!picture.isNull()) {
        const QSize size(kPictureSize, kPictureSize);
        const QPixmap pixmap = picture.pixmap(size, devicePixelRatio(), mode);
        const int x = area.left() + (area.width() - size.width()) / 2;
        p.drawPixmap(x, area.top(), pixmap);
        area.setTop(area.top() + size.height() + 1);
    }
    const int flags =
        Qt::TextWordWrap | Qt::AlignHCenter | (picture.isNull() ? Qt::AlignVCenter : Qt::AlignTop);
    style()->drawItemText(&p, area, flags, palette(), isEnabled(), caption, QPalette::ButtonText);
}

}  // namespace gui::detail
