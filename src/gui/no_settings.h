#pragma once
// Inside gui/ only: a guard that keeps Qt's file dialogs from leaving a settings file.

#include <QSettings>
#include <QTemporaryDir>

namespace gui::detail {

// Qt's file dialog writes its last folder, history and view into a settings file of Qt's
// when it closes. The program keeps no settings: while a dialog lives, settings go to a
// folder that is removed with it.
class NoSettingsKept {
  public:
    NoSettingsKept() {
        const QString path = folder_.isValid() ? folder_.path() : QStringLiteral("/dev/null");
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, path);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, path);
    }

  private:
    QTemporaryDir folder_;
};

}  // namespace gui::detail
