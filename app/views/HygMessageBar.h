#pragma once

#include <QFrame>
#include <QStringList>

class QLabel;
class QToolButton;

/// A strip above the views that says what went wrong without stopping the work; it stays until it is closed or cleared.
class HygMessageBar : public QFrame {
    Q_OBJECT
public:
    explicit HygMessageBar(QWidget * parent = nullptr);

    static constexpr int MAX_MESSAGES = 3;

    /// The last messages stand one below the other; one that is shown already is not repeated.
    void showMessage(const QString & text);
    void clear();
    QString text() const;

protected:
    void paintEvent(QPaintEvent * event) override;
    void changeEvent(QEvent * event) override;

private:
    void retranslate();
    void updateIcon();

    QStringList m_messages;
    QLabel * m_icon;
    QLabel * m_text;
    QToolButton * m_close;
};
