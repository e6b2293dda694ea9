#pragma once

#include <QDBusVariant>
#include <QObject>

namespace QtExt {

/// Whether the desktop prefers a dark look: asked from the desktop portal without waiting, or seen in the palette that
/// the platform brought along.
class SystemTheme : public QObject {
    Q_OBJECT
public:
    static SystemTheme & instance();
    bool isDark() const { return m_isDark; }

signals:
    void changed();

private slots:
    void onSettingChanged(const QString & group, const QString & key, const QDBusVariant & value);

private:
    SystemTheme();
    void askPortal();
    void setColorScheme(const QVariant & scheme);

    bool m_isDark = false;
};

} // namespace QtExt
