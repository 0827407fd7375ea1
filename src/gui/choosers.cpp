#include "gui/choosers.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "gui/accessibility.h"
#include "gui/no_settings.h"
#include "gui/seams_state.h"

namespace gui {

bool OpenDialog::ShowOpen() {
    auto& seams = detail::Seams();
    seams.openCalls.push_back({DialogTitle, Filters, InitDir, SelectedFilter});
    const bool real = seams.realOpenDialogs > 0;
    if (real) {
        --seams.realOpenDialogs;
    } else if (!seams.openAnswers.empty()) {
        const std::optional<QString> answer = seams.openAnswers.front();
        seams.openAnswers.pop_front();
        if (!answer) return false;
        FileName = *answer;
        return true;
    }
    if (seams.testMode && !real) {  // a headless test would wait for ever on a real dialog
        ++seams.unanswered;
        return false;
    }
    const detail::NoSettingsKept noSettings;
    FileName = QFileDialog::getOpenFileName(QApplication::activeWindow(), DialogTitle, InitDir,
                                            Filters.join(QStringLiteral(";;")), &SelectedFilter);
    return !FileName.isEmpty();
}

int ChooseFromList(const QString& title, const QString& listName, const QStringList& lines) {
    QDialog dialog(QApplication::activeWindow());
    dialog.setWindowTitle(title);
    auto* label = new QLabel(listName + u':', &dialog);
    auto* list = new QListWidget(&dialog);
    list->setObjectName(QStringLiteral("choices"));
    list->setAccessibleName(listName);
    list->addItems(lines);
    list->setCurrentRow(0);
    detail::SpeakCurrentLineOnFocus(list);
    label->setBuddy(list);
    list->setMinimumWidth(list->sizeHintForColumn(0) + 40);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    QObject::connect(list, &QListWidget::itemActivated, &dialog, &QDialog::accept);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(label);
    layout->addWidget(list);
    layout->addWidget(buttons);
    list->setFocus();
    if (dialog.exec() != QDialog::Accepted) return -1;
    return list->currentRow();
}

}  // namespace gui
