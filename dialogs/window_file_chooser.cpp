// SPDX-License-Identifier: MIT

#include "dialogs/window_file_chooser.h"

#include <QFileDialog>
#include <QRegularExpression>

namespace vantrel::dialogs {

QString WindowFileChooser::SaveName(QWidget* parent, const QString& title,
                                    const QString& suggestion, const QString& filters) {
  QFileDialog dialog(parent, title, suggestion, filters);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // The ending of the filter that is chosen is added, and the dialog asks before it overwrites.
  const auto follow = [&dialog](const QString& filter) {
    const auto ending = QRegularExpression("\\*\\.(\\w+)").match(filter);
    if (ending.hasMatch()) dialog.setDefaultSuffix(ending.captured(1));
  };
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
  follow(dialog.selectedNameFilter());
  dialog.selectFile(suggestion);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString WindowFileChooser::OpenName(QWidget* parent, const QString& title, const QString& filters) {
  QFileDialog dialog(parent, title, {}, filters);
  dialog.setFileMode(QFileDialog::ExistingFile);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace vantrel::dialogs
