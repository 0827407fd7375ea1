#include "gui/dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSettings>
#include <QTemporaryDir>

#include "gui/no_settings.h"
#include "gui/seams_state.h"

namespace gui {
namespace {

// "name|pattern|name|pattern" as Qt's "name (pattern);;name (pattern)".
QString QtFilter(const QString& filter) {
    const QStringList parts = filter.split(u'|');
    QStringList entries;
    for (int i = 0; i + 1 < parts.size(); i += 2)
        entries << QStringLiteral("%1 (%2)").arg(parts[i],
                                                 QString(parts[i + 1]).replace(u';', u' '));
    return entries.join(QStringLiteral(";;"));
}

// The save dialog accepts only a name in a folder that exists; the dialogs hand back any
// name they are given. True when the name is refused, after saying why.
bool RefuseMissingFolder(QWidget* parent, const QString& title, const QString& name) {
    const QFileInfo target(name);
    if (target.absoluteDir().exists()) return false;
    QMessageBox::warning(
        parent, title,
        QStringLiteral("%1\nThe folder does not exist. Check the name and try again.")
            .arg(QDir::toNativeSeparators(target.absoluteFilePath())));
    return true;
}

// Qt's own dialog, where the platform has none: a refused name keeps it open. The platform's
// dialog (Windows, GTK, the portal) has closed by the time it reports a name; refusing here
// would end it as a cancel, so its name is taken and ShowSave refuses it and shows it again.
class SaveFileDialog : public QFileDialog {
  public:
    using QFileDialog::QFileDialog;

    void accept() override {
        if (testAttribute(Qt::WA_DontShowOnScreen)) {  // Qt marks it so while a platform
            QFileDialog::accept();                     // dialog stands in for it
            return;
        }
        const QStringList chosen = selectedFiles();
        if (!chosen.isEmpty() && RefuseMissingFolder(this, windowTitle(), chosen.first())) return;
        QFileDialog::accept();
    }
};

// The folder the save dialog starts in: the proposed file's own, else the working folder
// when the user may write there, else the home folder. Left to itself, the dialog starts
// where the program's last file dialog was, the open dialog's folder of installed fixtures
// too, where no user writes.
QString StartFolder(const QString& proposal) {
    const QFileInfo proposed(proposal);
    if (proposed.path() != u'.') return proposed.absolutePath();
    if (QFileInfo(QDir::currentPath()).isWritable()) return QDir::currentPath();
    return QDir::homePath();
}

// The platform's own dialog (GTK, the desktop portal, Windows) where it has one, else Qt's.
std::optional<QString> RunSaveDialog(const SaveDialog& browse, const QString& proposal) {
    detail::NoSettingsKept noSettings;
    SaveFileDialog dialog(QApplication::activeWindow(), browse.DialogTitle, StartFolder(proposal));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !browse.OverwritePrompt);
    dialog.setOption(QFileDialog::HideNameFilterDetails);  // the filter reads as it is given
    dialog.setNameFilter(QtFilter(browse.Filter));
    dialog.selectFile(proposal);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    const QStringList chosen = dialog.selectedFiles();
    if (chosen.isEmpty()) return std::nullopt;
    return chosen.first();
}

}  // namespace

static_assert(int(MsgButton::Ok) == QMessageBox::Ok && int(MsgButton::Yes) == QMessageBox::Yes &&
              int(MsgButton::No) == QMessageBox::No);
static_assert(int(MsgIcon::Information) == QMessageBox::Information &&
              int(MsgIcon::Warning) == QMessageBox::Warning &&
              int(MsgIcon::Critical) == QMessageBox::Critical);

MsgButton MsgBox(const QString& text, const MsgStyle& style, const QString& title) {
    auto& seams = detail::Seams();
    seams.msgBoxCalls.push_back({text, style, title});
    if (!seams.msgBoxAnswers.empty()) {
        const MsgButton answer = seams.msgBoxAnswers.front();
        seams.msgBoxAnswers.pop_front();
        return answer;
    }
    if (seams.testMode) {  // a headless test would wait for ever on a real dialog
        ++seams.unanswered;
        return style.buttons.testFlag(MsgButton::No) ? MsgButton::No : MsgButton::Ok;
    }
    QMessageBox box(QMessageBox::Icon(style.icon), title, text,
                    QMessageBox::StandardButtons(style.buttons.toInt()),
                    QApplication::activeWindow());
    if (style.defaultButton != MsgButton::None)
        box.setDefaultButton(QMessageBox::StandardButton(style.defaultButton));
    return MsgButton(box.exec());
}

bool SaveDialog::ShowSave() {
    auto& seams = detail::Seams();
    seams.saveCalls.push_back({DialogTitle, Filter, FileName, OverwritePrompt});
    const bool real = seams.realSaveDialogs > 0;
    if (real) {
        --seams.realSaveDialogs;
    } else if (!seams.saveAnswers.empty()) {
        const std::optional<QString> answer = seams.saveAnswers.front();
        seams.saveAnswers.pop_front();
        if (!answer) return false;
        FileName = *answer;
        return true;
    }
    if (seams.testMode && !real) {
        ++seams.unanswered;
        return false;
    }
    // A platform dialog returns a name in a missing folder: refused, and the dialog comes
    // again with that name.
    QString proposal = FileName;
    for (;;) {
        const std::optional<QString> chosen = RunSaveDialog(*this, proposal);
        if (!chosen) return false;
        if (!RefuseMissingFolder(QApplication::activeWindow(), DialogTitle, *chosen)) {
            FileName = *chosen;
            return true;
        }
        proposal = *chosen;
    }
}

}  // namespace gui
