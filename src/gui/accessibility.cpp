#include "gui/accessibility.h"

#include <QAccessibleWidget>
#include <QComboBox>

namespace gui::detail {
namespace {

constexpr const char* kSpokenAs = "rigwrightSpokenAs";

class SeparatorReader : public QAccessibleWidget {
  public:
    explicit SeparatorReader(QWidget* line) : QAccessibleWidget(line, QAccessible::Separator) {}
    QString text(QAccessible::Text) const override { return {}; }
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
    return new ComboBoxReader(static_cast<QComboBox*>(object));
}

void SpeakAs(QWidget* widget, const char* as) {
    static const bool installed = (QAccessible::installFactory(Reader), true);
    Q_UNUSED(installed);
    widget->setProperty(kSpokenAs, QByteArray(as));
}

}  // namespace

void NameLikeAnInput(QWidget* comboBox) {
    SpeakAs(comboBox, "input");
}

void SpeakAsSeparator(QWidget* line) {
    SpeakAs(line, "separator");
}

}  // namespace gui::detail
