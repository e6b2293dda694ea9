#include <QtExt/MessageBox.h>

#include <QtExt/Settings.h>

#include <QCheckBox>
#include <QCoreApplication>

namespace QtExt {

QMessageBox::StandardButton MessageBox::ask(QWidget * parent, const Question & question) {
    Settings & settings = Settings::instance();
    const auto remembered = static_cast<QMessageBox::StandardButton>(settings.rememberedAnswer(question.id));
    if (remembered != QMessageBox::NoButton && question.buttons.testFlag(remembered))
        return remembered;

    QMessageBox box(question.icon, question.title, question.text, question.buttons, parent);
    box.setInformativeText(question.details);
    box.setDefaultButton(question.defaultButton);
    auto * checkBox =
        new QCheckBox(question.buttons == QMessageBox::Ok
                          ? QCoreApplication::translate("QtExt::MessageBox", "Do not show this again")
                          : QCoreApplication::translate("QtExt::MessageBox", "Remember and do not ask again"));
    checkBox->setObjectName(QStringLiteral("doNotShowAgain"));
    box.setCheckBox(checkBox);

    const auto answer = static_cast<QMessageBox::StandardButton>(box.exec());
    const QMessageBox::ButtonRole role = box.buttonRole(box.button(answer));
    if (checkBox->isChecked() && role != QMessageBox::RejectRole && answer != QMessageBox::NoButton) {
        settings.rememberAnswer(question.id, answer);
        settings.writeOrLog();
    }
    return answer;
}

void MessageBox::inform(QWidget * parent, const QString & id, const QString & title, const QString & text) {
    ask(parent, {.id = id,
                 .title = title,
                 .text = text,
                 .icon = QMessageBox::Information,
                 .buttons = QMessageBox::Ok,
                 .defaultButton = QMessageBox::Ok});
}

} // namespace QtExt
