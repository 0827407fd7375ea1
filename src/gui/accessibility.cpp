#include "gui/accessibility.h"

#include <QAccessibleWidget>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>

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
        if (t == QAccessible::Name) return static_cast<QGroupBox*>(widget())->title();
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
        if (match & QAccessible::Labelled && label()->buddy())
            found.append(
                {QAccessible::queryAccessibleInterface(label()->buddy()), QAccessible::Labelled});
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

QAccessibleInterface* Reader(const QString&, QObject* object) {
    const QByteArray as = object->property(kSpokenAs).toByteArray();
    if (as.isEmpty()) return nullptr;
    if (as == "separator") return new SeparatorReader(static_cast<QWidget*>(object));
    if (as == "picture") return new PictureReader(static_cast<QWidget*>(object));
    if (as == "frame") return new FrameReader(static_cast<QGroupBox*>(object));
    if (as == "label") return new LabelReader(static_cast<QLabel*>(object));
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

}  // namespace gui::detail
