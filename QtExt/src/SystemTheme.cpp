#include "SystemTheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QPalette>
#include <QPointer>
#ifdef Q_OS_WIN
#include <QSettings>
#endif

namespace QtExt {

namespace {
const QString SERVICE = QStringLiteral("org.freedesktop.portal.Desktop");
const QString PATH = QStringLiteral("/org/freedesktop/portal/desktop");
const QString INTERFACE = QStringLiteral("org.freedesktop.portal.Settings");
const QString GROUP = QStringLiteral("org.freedesktop.appearance");
const QString KEY = QStringLiteral("color-scheme");
constexpr uint PREFERS_DARK = 1;
} // namespace

SystemTheme & SystemTheme::instance() {
    // Owned by the application: the bus must not be used after it is gone.
    static QPointer<SystemTheme> theme;
    if (theme.isNull()) {
        theme = new SystemTheme;
        theme->setParent(qApp);
    }
    return *theme;
}

SystemTheme::SystemTheme() : m_isDark(QApplication::palette().color(QPalette::Window).lightness() < 128) {
#ifdef Q_OS_WIN
    const QSettings personalize("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                                QSettings::NativeFormat);
    m_isDark = personalize.value("AppsUseLightTheme", 1).toInt() == 0;
#else
    // Without an address the library would start a bus of its own and wait for it.
    if (qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"))
        askPortal();
#endif
}

void SystemTheme::askPortal() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(SERVICE, PATH, INTERFACE, QStringLiteral("SettingChanged"), this,
                SLOT(onSettingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(SERVICE, PATH, INTERFACE, QStringLiteral("Read"));
    question << GROUP << KEY;
    auto * answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher * finished) {
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        if (!reply.isError())
            setColorScheme(reply.value().variant());
        finished->deleteLater();
    });
}

void SystemTheme::onSettingChanged(const QString & group, const QString & key, const QDBusVariant & value) {
    if (group == GROUP && key == KEY)
        setColorScheme(value.variant());
}

void SystemTheme::setColorScheme(const QVariant & scheme) {
    // Some portals wrap the number in a second variant; 0 is "no preference".
    const QVariant number = scheme.canConvert<QDBusVariant>() ? scheme.value<QDBusVariant>().variant() : scheme;
    const bool isDark = number.toUInt() == PREFERS_DARK;
    if (number.toUInt() == 0 || isDark == m_isDark)
        return;
    m_isDark = isDark;
    emit changed();
}

} // namespace QtExt
