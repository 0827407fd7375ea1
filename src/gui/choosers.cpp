#include "gui/choosers.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScreen>
#include <QStringListModel>
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

int ChooseFromList(const QString& title, const QString& listName, const QStringList& lines,
                   int current) {
    if (lines.isEmpty()) return -1;
    QDialog dialog(QApplication::activeWindow());
    dialog.setWindowTitle(title);
    auto* label = new QLabel(listName + u':', &dialog);
    // A fixture may bring thousands of lines: a model holds them with no object for each,
    // and lines of one height are placed without measuring each.
    auto* list = new QListView(&dialog);
    list->setObjectName(QStringLiteral("choices"));
    list->setAccessibleName(listName);
    list->setUniformItemSizes(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setModel(new QStringListModel(lines, list));
    list->setCurrentIndex(list->model()->index(current, 0));
    detail::SpeakCurrentLineOnFocus(list);
    label->setBuddy(list);
    // As wide as the longest line, measured alone rather than every line.
    const QString* longest = &lines.first();
    for (const QString& line : lines)
        if (line.size() > longest->size()) longest = &line;
    list->setMinimumWidth(std::min(list->fontMetrics().horizontalAdvance(*longest) + 60,
                                   list->screen()->availableSize().width() * 3 / 4));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    QObject::connect(list, &QListView::activated, &dialog, &QDialog::accept);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(label);
    layout->addWidget(list);
    layout->addWidget(buttons);
    list->setFocus();
    if (dialog.exec() != QDialog::Accepted) return -1;
    return list->currentIndex().row();
}

}  // namespace gui
