#pragma once

#include <QMessageBox>
#include <QString>

namespace QtExt {

/// Message boxes with a check box "do not show again", whose answer is remembered in the settings.
class MessageBox {
public:
    struct Question {
        QString id; ///< under which the answer is remembered
        QString title;
        QString text;
        QString details = {}; ///< shown smaller below the text
        QMessageBox::Icon icon = QMessageBox::Question;
        QMessageBox::StandardButtons buttons = QMessageBox::Yes | QMessageBox::No;
        QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    };

    /// The remembered answer, if there is one among the buttons; else asks. Cancel, Abort, Close and Escape are never
    /// remembered, since the user could not get any further the next time.
    static QMessageBox::StandardButton ask(QWidget * parent, const Question & question);

    /// A message with an OK button that the user may dismiss for good.
    static void inform(QWidget * parent, const QString & id, const QString & title, const QString & text);
};

} // namespace QtExt
