#include "gui/accessibility.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPointer>
#include <QRadioButton>
#include <QTimer>
#include <utility>

#include "gui/text_reader.h"

namespace gui::detail {
namespace {

constexpr const char* kSpokenAs = "rigwrightSpokenAs";

class SeparatorReader : public QAccessibleWidget {
  public:
    explicit SeparatorReader(QWidget* line) : QAccessibleWidget(line, QAccessible::Separator) {}
    QString text(QAccessible::Text) const override { return {}; }
};

class PictureReader : public QAccessibleWidget {
  public:
    explicit PictureReader(QWidget* picture) : QAccessibleWidget(picture, QAccessible::Graphic) {}
    QString text(QAccessible::Text) const override { return {}; }
};

class FrameReader : public QAccessibleWidget {
  public:
    explicit FrameReader(QGroupBox* frame) : QAccessibleWidget(frame, QAccessible::Grouping) {}
    QString text(QAccessible::Text t) const override {
        // A name given until the first caption comes, then the title without its padding.
        if (t == QAccessible::Name && widget()->accessibleName().isEmpty())
            return static_cast<QGroupBox*>(widget())->title().trimmed();
        return QAccessibleWidget::text(t);
    }
};

class LabelReader : public QAccessibleWidget {
  public:
    explicit LabelReader(QLabel* label) : QAccessibleWidget(label, QAccessible::StaticText) {}
    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Name) return label()->text();
        return QAccessibleWidget::text(t);
    }
    // The label names its buddy, so it says which input it labels.
    QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation match) const override {
        auto found = QAccessibleWidget::relations(match);
        if (!(match & QAccessible::Labelled)) return found;
        if (label()->buddy())
            found.append(
                {QAccessible::queryAccessibleInterface(label()->buddy()), QAccessible::Labelled});
        for (const QVariant& v : label()->property("rigwrightLabelFor").toList())
            found.append({QAccessible::queryAccessibleInterface(v.value<QObject*>()),
                          QAccessible::Labelled});
        return found;
    }

  private:
    QLabel* label() const { return static_cast<QLabel*>(widget()); }
};

class ComboBoxReader : public QAccessibleWidget {
  public:
    explicit ComboBoxReader(QComboBox* box) : QAccessibleWidget(box, QAccessible::ComboBox) {}
    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Value) return static_cast<QComboBox*>(widget())->currentText();
        return QAccessibleWidget::text(t);
    }
    QAccessible::State state() const override {
        QAccessible::State s = QAccessibleWidget::state();
        s.editable = true;
        s.expandable = true;
        return s;
    }
};

// An option read as Qt reads it, and also as labelled by the label of its group, which a
// screen reader says with it ("Fixture type:").
class OptionReader : public QAccessibleWidget {
  public:
    explicit OptionReader(QRadioButton* option)
        : QAccessibleWidget(option, QAccessible::RadioButton) {}
    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Name) return option()->text();
        return QAccessibleWidget::text(t);
    }
    QAccessible::State state() const override {
        QAccessible::State s = QAccessibleWidget::state();
        s.checkable = true;
        s.checked = option()->isChecked();
        return s;
    }
    QStringList actionNames() const override {
        return QAccessibleWidget::actionNames() << pressAction();
    }
    void doAction(const QString& action) override {
        if (action == pressAction())
            option()->click();
        else
            QAccessibleWidget::doAction(action);
    }
    QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation match) const override {
        auto found = QAccessibleWidget::relations(match);
        auto* group = option()->property("rigwrightLabelledBy").value<QObject*>();
        if (match & QAccessible::Label && group)
            found.prepend({QAccessible::queryAccessibleInterface(group), QAccessible::Label});
        return found;
    }

  private:
    QRadioButton* option() const { return static_cast<QRadioButton*>(widget()); }
};

// Qt tells of the list's focus after the list has taken it, so the line is told as the turn
// ends, to come after that.
class CurrentLineOnFocus : public QObject {
  public:
    explicit CurrentLineOnFocus(QAbstractItemView* list) : QObject(list), list_(list) {}
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::FocusIn || std::exchange(pending_, true)) return false;
        QTimer::singleShot(0, this, [this] {
            pending_ = false;
            const QModelIndex current = list_->currentIndex();
            if (!list_->hasFocus() || !current.isValid()) return;
            QAccessibleEvent focus(list_, QAccessible::Focus);
            focus.setChild(current.row());
            QAccessible::updateAccessibility(&focus);
        });
        return false;
    }

  private:
    QAbstractItemView* list_;
    bool pending_ = false;  // told as this turn ends
};

// A widget of no size that stands for what is announced.
class Announcer : public QWidget {
  public:
    Announcer() {
        setObjectName(QStringLiteral("announcement"));
        setFocusPolicy(Qt::NoFocus);
    }
    // `text` is empty when only `check` has something to say; `check` runs when the turn
    // ends, and what it gives, if anything, is said too.
    void add(const QString& text, std::function<QString()> check) {
        if (!flushing_) {
            flushing_ = true;
            QTimer::singleShot(0, this, [this] {
                flushing_ = false;
                for (const auto& c : checks_) pending_ << c();
                checks_.clear();
                pending_.removeAll(QString());
                if (pending_.isEmpty()) return;
                text_ = pending_.join(QStringLiteral(" "));
                pending_.clear();
                QAccessibleEvent named(this, QAccessible::NameChanged);
                QAccessible::updateAccessibility(&named);
                // Coming on screen is what makes a screen reader read a notification.
                hide();
                show();
            });
        }
        // Of the texts said in one turn, the last stands for what is on screen now.
        if (!text.isEmpty()) pending_ = QStringList{text.trimmed()};
        if (check) checks_.push_back(std::move(check));
    }
    QString text_;

  private:
    bool flushing_ = false;  // the texts are said when this turn ends
    QStringList pending_;
    std::vector<std::function<QString()>> checks_;
};

class AnnouncementReader : public QAccessibleWidget {
  public:
    explicit AnnouncementReader(QWidget* w) : QAccessibleWidget(w, QAccessible::Notification) {}
    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Name) return static_cast<Announcer*>(widget())->text_;
        return QAccessibleWidget::text(t);
    }
};

QAccessibleInterface* Reader(const QString&, QObject* object) {
    const QByteArray as = object->property(kSpokenAs).toByteArray();
    if (as.isEmpty()) return nullptr;
    if (as == "window")
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window);
    if (as == "announcement") return new AnnouncementReader(static_cast<QWidget*>(object));
    if (as == "option") return new OptionReader(static_cast<QRadioButton*>(object));
    if (as == "separator") return new SeparatorReader(static_cast<QWidget*>(object));
    if (as == "picture") return new PictureReader(static_cast<QWidget*>(object));
    if (as == "frame") return new FrameReader(static_cast<QGroupBox*>(object));
    if (as == "label") return new LabelReader(static_cast<QLabel*>(object));
    if (as == "text") return NewTextReader(static_cast<QWidget*>(object));
    return new ComboBoxReader(static_cast<QComboBox*>(object));
}

void SpeakAs(QWidget* widget, const char* as) {
    static const bool installed = (QAccessible::installFactory(Reader), true);
    Q_UNUSED(installed);
    widget->setProperty(kSpokenAs, QByteArray(as));
}

}  // namespace

void NameByTitle(QWidget* frame) {
    SpeakAs(frame, "frame");
}
void NameByText(QWidget* label) {
    SpeakAs(label, "label");
}
void NameLikeAnInput(QWidget* comboBox) {
    SpeakAs(comboBox, "input");
}
void SpeakAsSeparator(QWidget* line) {
    SpeakAs(line, "separator");
}
void SpeakAsPicture(QWidget* picture) {
    SpeakAs(picture, "picture");
}
void SpeakAsOption(QWidget* option) {
    SpeakAs(option, "option");
}
void SpeakAsTextInput(QWidget* input) {
    SpeakAs(input, "text");
}
void SpeakCurrentLineOnFocus(QAbstractItemView* list) {
    list->installEventFilter(new CurrentLineOnFocus(list));
}
void SpeakAsWindow(QWidget* window) {
    SpeakAs(window, "window");
}

void Announce(QWidget* window, const QString& text, std::function<QString()> check) {
    auto* announcer = static_cast<Announcer*>(
        window->findChild<QWidget*>(QStringLiteral("announcement"), Qt::FindDirectChildrenOnly));
    if (!announcer) {
        announcer = new Announcer;
        SpeakAs(announcer, "announcement");  // before it has a place where it can be seen
        announcer->setParent(window);
        announcer->setGeometry(0, 0, 0, 0);
    }
    announcer->add(text, std::move(check));
}

}  // namespace gui::detail
