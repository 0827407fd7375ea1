#include "gui/control.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFontMetrics>
#include <QFrame>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QShortcut>
#include <QTextEdit>
#include <QTimer>

#include "gui/accessibility.h"
#include "gui/multi_line_box.h"
#include "gui/widgets.h"

namespace gui {
namespace {

using detail::ApplyColours;
using detail::FontFor;

Qt::Alignment AlignmentOf(Align align) {
    switch (align) {
        case Align::Centre:
            return Qt::AlignHCenter;
        case Align::Right:
            return Qt::AlignRight;
        case Align::Left:
            break;
    }
    return Qt::AlignLeft;
}

// The top-level window: closing goes through the query-unload handler, which may refuse.
class FormWindow : public QWidget {
  public:
    std::function<void(int&, int&)> queryUnload;
    QString iconDrawing;  // the window icon's drawing, until it is set

  protected:
    // The icon comes in eight sizes, which X11 copies in full into the window's properties
    // before it maps the window. Set right after the first paint, for this window and every
    // dialog, it no longer keeps the form from coming on screen.
    void paintEvent(QPaintEvent* event) override {
        QWidget::paintEvent(event);
        if (iconDrawing.isEmpty()) return;
        QTimer::singleShot(0, this, [drawing = iconDrawing] {
            QApplication::setWindowIcon(detail::IconSetOf(drawing));
        });
        iconDrawing.clear();
    }
    void closeEvent(QCloseEvent* event) override {
        int cancel = 0;
        int mode = 0;
        if (queryUnload) queryUnload(cancel, mode);
        if (cancel != 0)
            event->ignore();
        else
            event->accept();
    }
};

// A caption that does not fit its label in the form's font is drawn a little smaller,
// so that no word of it is cut off.
void FitCaption(QLabel* label) {
    const QFont base = label->property("rigwrightFont").value<QFont>();
    const QRect room = label->contentsRect();
    const QString& caption = label->text();
    // Most captions stand on one line with room to spare; only the others are laid out.
    const QFontMetrics plain(base);
    const bool oneLine = !caption.contains(u'\n') &&
                         plain.horizontalAdvance(caption) <= room.width() &&
                         plain.lineSpacing() <= room.height();
    QFont font = base;
    const int flags = Qt::TextWordWrap | label->alignment();
    while (!oneLine && font.pointSizeF() > 6.0 &&
           QFontMetrics(font).boundingRect(room, flags, caption).height() > room.height())
        font.setPointSizeF(font.pointSizeF() - 0.25);
    if (font != label->font()) label->setFont(font);
}

// A label that fits its caption when it is first painted, so that labels of pages not on
// show cost nothing at start.
class FittingLabel : public QLabel {
  public:
    void Refit() {
        fitted_ = false;
        update();
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        if (!fitted_) {
            fitted_ = true;
            FitCaption(this);
        }
        QLabel::paintEvent(event);
    }

  private:
    bool fitted_ = false;
};

}  // namespace

// ---- Control --------------------------------------------------------------------------

QString Control::Name() const {
    return widget_ ? widget_->objectName() : QString();
}
bool Control::Visible() const {
    return widget_ && !widget_->isHidden();
}
void Control::setVisible(bool visible) {
    widget_->setVisible(visible);
}
bool Control::Enabled() const {
    return widget_->isEnabled();
}
void Control::setEnabled(bool enabled) {
    widget_->setEnabled(enabled);
}
int Control::Left() const {
    return PixelsToTwips(widget_->x());
}
int Control::Top() const {
    return PixelsToTwips(widget_->y());
}
void Control::setLeft(int twips) {
    widget_->move(TwipsToPixels(twips), widget_->y());
}
void Control::setTop(int twips) {
    widget_->move(widget_->x(), TwipsToPixels(twips));
}
void Control::SetFocus() {
    widget_->setFocus(Qt::OtherFocusReason);
}

void Control::adopt(QWidget* widget, Control& parent, const QString& name, const Look& look) {
    widget_ = widget;
    if (parent.widget_) widget->setParent(parent.widget_);
    widget->setObjectName(name);
    widget->setGeometry(TwipsToPixels(look.left), TwipsToPixels(look.top),
                        TwipsToPixels(look.width), TwipsToPixels(look.height));
    widget->setFont(FontFor(look));
    widget->setEnabled(look.enabled);
    if (!look.toolTip.isEmpty()) widget->setToolTip(look.toolTip);
    // A caption is never copied into the name: Qt names labels, buttons and frames by what
    // they show now, and inputs by their label or frame.
    if (!look.accessibleName.isEmpty()) widget->setAccessibleName(look.accessibleName);
    if (!look.visible) widget->hide();
}

// ---- Form -----------------------------------------------------------------------------

Form::Form() = default;
Form::~Form() {
    delete widget_;
}

void Form::create(const QString& name, const Look& look, const QString& iconDrawing) {
    auto* window = new FormWindow;
    detail::SpeakAsWindow(window);
    window->setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
    Control none;
    adopt(window, none, name, look);
    window->setFixedSize(TwipsToPixels(look.width), TwipsToPixels(look.height));
    // A window given a place before it shows is placed there by the window manager, at 0,0
    // with its title bar off the screen; without one, the window manager places it.
    window->setAttribute(Qt::WA_Moved, false);
    window->setWindowTitle(look.caption);
    window->iconDrawing = iconDrawing;
}

QString Form::Caption() const {
    return widget_->windowTitle();
}

void Form::onQueryUnload(std::function<void(int&, int&)> handler) {
    static_cast<FormWindow*>(widget_)->queryUnload = std::move(handler);
}

void Form::Show() {
    widget_->show();
}

void Form::Announce(const QString& text) {
    detail::Announce(widget_, text);
}

void Form::onShortcut(const QKeySequence& keys, Handler handler) {
    new QShortcut(keys, widget_, std::move(handler), Qt::WindowShortcut);
}

// ---- Frame ----------------------------------------------------------------------------

void Frame::create(Control& parent, const QString& name, const Look& look) {
    auto* box = new QGroupBox;
    detail::NameByTitle(box);
    adopt(box, parent, name, look);
    box->setTitle(look.caption);
    box->setFlat(false);
    ApplyColours(box, look, QPalette::WindowText, QPalette::Window);
    tag_ = look.tag;
}

QString Frame::Caption() const {
    return static_cast<QGroupBox*>(widget_)->title();
}
void Frame::setCaption(const QString& caption, const QString& place) {
    static_cast<QGroupBox*>(widget_)->setTitle(caption);
    widget_->setAccessibleName(QString());  // from now on named by its title
    // An input with no label of its own is named by the frame's title. Qt would read the
    // title with its padding, and never tell a screen reader that the name changed with it.
    QString name = caption.trimmed();
    if (!place.isEmpty()) name += QStringLiteral(", ") + place;
    QList<QWidget*> labelled;
    for (QLabel* label : widget_->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly))
        labelled << label->buddy();
    for (QWidget* w : widget_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const bool input = qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w);
        if (input && !labelled.contains(w)) w->setAccessibleName(name);
    }
}

// ---- Label ----------------------------------------------------------------------------

void Label::create(Control& parent, const QString& name, const Look& look) {
    auto* label = new FittingLabel;
    detail::NameByText(label);
    adopt(label, parent, name, look);
    label->setText(look.caption);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(AlignmentOf(look.align) | Qt::AlignTop);
    ApplyColours(label, look, QPalette::WindowText, QPalette::Window);
    label->setContentsMargins(0, 0, TwipsToPixels(look.coveredRight), 0);
    label->setProperty("rigwrightFont", label->font());
}

QString Label::Caption() const {
    return static_cast<QLabel*>(widget_)->text();
}
void Label::setCaption(const QString& caption) {
    auto* label = static_cast<FittingLabel*>(widget_);
    label->setText(caption);
    label->Refit();
    if (!announced_) return;
    if (caption.isEmpty()) spoken_.clear();  // what comes next is new again
    if (pending_) return;
    pending_ = true;
    detail::Announce(widget_->window(), QString(), [this] {
        pending_ = false;
        const QString now = Caption();
        const bool changed = now != spoken_;
        spoken_ = now;
        if (!changed || now.isEmpty()) return QString();
        return lead_.isEmpty() ? now : lead_ + u' ' + now;
    });
}

void Label::setDescribes(Control& input) {
    input.widget()->setAccessibleDescription(Caption());
}

void Label::setLabelFor(std::initializer_list<Control*> controls) {
    QVariantList widgets;
    for (Control* c : controls) {
        widgets << QVariant::fromValue<QObject*>(c->widget());
        c->widget()->setProperty("rigwrightLabelledBy", QVariant::fromValue<QObject*>(widget_));
    }
    widget_->setProperty("rigwrightLabelFor", widgets);
}

void Label::AnnounceChanges(const QString& lead) {
    announced_ = true;
    lead_ = lead;
    spoken_ = Caption();
}

void Label::setBuddy(Control& input) {
    static_cast<QLabel*>(widget_)->setBuddy(input.widget());
}

// ---- TextBox --------------------------------------------------------------------------

void TextBox::create(Control& parent, const QString& name, const Look& look) {
    tag_ = look.tag;
    if (look.multiLine) {
        multi_ = new detail::MultiLineBox;
        detail::SpeakAsTextInput(multi_);
        adopt(multi_, parent, name, look);
        multi_->setAcceptRichText(false);
        multi_->setTabChangesFocus(true);
        QTextOption option = multi_->document()->defaultTextOption();
        option.setAlignment(AlignmentOf(look.align));
        multi_->document()->setDefaultTextOption(option);
        if (look.scrollBars) {
            multi_->setLineWrapMode(QTextEdit::NoWrap);
            multi_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
            multi_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        } else {
            multi_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
            multi_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        }
        ApplyColours(multi_, look, QPalette::Text, QPalette::Base);
        multi_->setMaxLength(look.maxLength);
        setText(look.caption);
        return;
    }
    line_ = new QLineEdit;
    detail::SpeakAsTextInput(line_);
    adopt(line_, parent, name, look);
    line_->setAlignment(AlignmentOf(look.align) | Qt::AlignVCenter);
    if (look.maxLength > 0) line_->setMaxLength(look.maxLength);
    ApplyColours(line_, look, QPalette::Text, QPalette::Base);
    line_->setText(look.caption);
    line_->setCursorPosition(0);
}

QString TextBox::Text() const {
    return line_ ? line_->text() : multi_->Text();
}

void TextBox::setText(const QString& text) {
    if (line_) {
        line_->setText(text);
        return;
    }
    multi_->setText(text);
}

void TextBox::setSelStart(int start) {
    if (line_) line_->setCursorPosition(start);
}

void TextBox::setSelLength(int length) {
    if (line_) line_->setSelection(line_->cursorPosition(), length);
}

void TextBox::onKeyPress(KeyHandler handler) {
    widget_->installEventFilter(new detail::KeyFilter(widget_, std::move(handler)));
}

// ---- ComboBox -------------------------------------------------------------------------

void ComboBox::create(Control& parent, const QString& name, const Look& look) {
    box_ = new QComboBox;
    detail::NameLikeAnInput(box_);
    adopt(box_, parent, name, look);
    box_->setEditable(true);
    // The edit box that Qt makes is read at once, while a screen reader runs, by Qt's own
    // reading; this one is read as the other text inputs are.
    auto* edit = new QLineEdit;
    detail::SpeakAsTextInput(edit);
    box_->setLineEdit(edit);
    box_->setCompleter(nullptr);
    box_->setInsertPolicy(QComboBox::NoInsert);
    box_->setMaxVisibleItems(24);
    box_->setEditText(look.caption);
    tag_ = look.tag;
    QObject::connect(box_, &QComboBox::activated, box_, [this](int index) { listIndex_ = index; });
    QObject::connect(box_->lineEdit(), &QLineEdit::textEdited, box_,
                     [this](const QString&) { listIndex_ = -1; });
    // When the edit box loses the focus, QComboBox picks the item whose text was typed and
    // reports it as chosen. Typing is not picking: only the list and the cursor keys choose.
    QObject::disconnect(box_->lineEdit(), SIGNAL(editingFinished()), box_, nullptr);
}

QString ComboBox::Text() const {
    return box_->currentText();
}

void ComboBox::setText(const QString& text) {
    box_->setEditText(text);
    listIndex_ = -1;
}

void ComboBox::setSelText(const QString& text) {
    box_->lineEdit()->insert(text);
    listIndex_ = -1;
}

void ComboBox::Clear() {
    box_->clear();
    box_->setEditText(QString());
    listIndex_ = -1;
}

void ComboBox::AddItem(const QString& item) {
    // QComboBox selects the first item added to an empty box; this box must not.
    const QString text = box_->currentText();
    box_->addItem(item);
    if (listIndex_ < 0 && box_->currentIndex() >= 0) {
        box_->setCurrentIndex(-1);
        box_->setEditText(text);
    }
}

int ComboBox::ListCount() const {
    return box_->count();
}

void ComboBox::onKeyPress(KeyHandler handler) {
    // The keys arrive at the combo box, which hands them to its edit box by a direct call
    // that passes no event filter: they are caught where they arrive.
    box_->installEventFilter(new detail::KeyFilter(box_, std::move(handler)));
}

// ---- OptionButton, CheckBox -----------------------------------------------------------

void OptionButton::create(Control& parent, const QString& name, const Look& look) {
    auto* option = new QRadioButton;  // its text would make Qt answer for it at once
    detail::SpeakAsOption(option);
    option->setText(look.caption);
    adopt(option, parent, name, look);
}

bool OptionButton::Value() const {
    return static_cast<QRadioButton*>(widget_)->isChecked();
}

void OptionButton::setValue(bool selected) {
    auto* option = static_cast<QRadioButton*>(widget_);
    if (selected) {
        option->setChecked(true);
        return;
    }
    option->setAutoExclusive(false);
    option->setChecked(false);
    option->setAutoExclusive(true);
}

void CheckBox::create(Control& parent, const QString& name, const Look& look) {
    auto* box = new QCheckBox(look.caption);
    adopt(box, parent, name, look);
    box->setChecked(look.checked);
}

int CheckBox::Value() const {
    return static_cast<QCheckBox*>(widget_)->isChecked() ? 1 : 0;
}
void CheckBox::setValue(int value) {
    static_cast<QCheckBox*>(widget_)->setChecked(value != 0);
}

void CheckBox::onClick(Handler handler) {
    QObject::connect(static_cast<QCheckBox*>(widget_), &QCheckBox::clicked, widget_,
                     [h = std::move(handler)](bool) { h(); });
}

// ---- Button, ListBox, Image, Line -----------------------------------------------------

void Button::create(Control& parent, const QString& name, const Look& look) {
    auto* button = new detail::PictureButton(nullptr);
    adopt(button, parent, name, look);
    button->setText(look.caption);
    button->setAutoDefault(false);
    if (!look.picture.isEmpty()) button->setPicture(look.picture);
}

void Button::onClick(Handler handler) {
    QObject::connect(static_cast<QAbstractButton*>(widget_), &QAbstractButton::clicked, widget_,
                     [h = std::move(handler)](bool) { h(); });
}

void Button::Click() {
    if (widget_->isEnabled()) static_cast<QAbstractButton*>(widget_)->click();
}

void ListBox::create(Control& parent, const QString& name, const Look& look) {
    auto* list = new QListWidget;
    adopt(list, parent, name, look);
    // The style's sunken frame loses its bottom line at some scales (1.5); a plain line in
    // the style's frame colour stays whole at every scale.
    list->setFrameStyle(QFrame::Box | QFrame::Plain);
    list->setLineWidth(1);
    QPalette pal = list->palette();
    pal.setColor(QPalette::WindowText, pal.color(QPalette::Mid));
    list->setPalette(pal);
}

void Image::create(Control& parent, const QString& name, const Look& look) {
    auto* label = new detail::PictureLabel;
    detail::SpeakAsPicture(label);
    adopt(label, parent, name, look);
    label->setPicture(look.picture);
}

void Line::create(Control& parent, const QString& name, int x1, int y1, int x2, int y2) {
    auto* line = new QFrame;
    detail::SpeakAsSeparator(line);
    const bool vertical = x1 == x2;
    Look look{.left = qMin(x1, x2),
              .top = qMin(y1, y2),
              .width = vertical ? 30 : qAbs(x2 - x1),
              .height = vertical ? qAbs(y2 - y1) : 30};
    adopt(line, parent, name, look);
    line->setFrameShape(vertical ? QFrame::VLine : QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    line->setFocusPolicy(Qt::NoFocus);
}

void TabOrder(std::initializer_list<Control*> controls) {
    QWidget* before = nullptr;
    for (Control* c : controls) {
        if (before) QWidget::setTabOrder(before, c->widget());
        before = c->widget();
    }
}

}  // namespace gui
