#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTimer;

/// Shows a text file and follows it while another program writes into it. Memory stays bounded: of a large file the end
/// is shown.
class HygScreenLogView : public QWidget {
    Q_OBJECT
public:
    explicit HygScreenLogView(QWidget * parent = nullptr);

    /// Follows another file from now on; one that is not there yet is waited for.
    void setFile(const QString & path);
    const QString & file() const { return m_path; }
    /// Shows a text that no file holds any more.
    void setText(const QString & title, const QString & text);
    /// Looks for what is new; done by itself while the widget is visible.
    void follow();

protected:
    void changeEvent(QEvent * event) override;
    void showEvent(QShowEvent * event) override;
    void hideEvent(QHideEvent * event) override;

private:
    void retranslate();
    void find();

    QString m_path;
    QString m_title;
    qint64 m_position = 0; ///< [bytes] up to where the file has been read
    quint64 m_inode = 0;
    QLabel * m_name;
    QLineEdit * m_search;
    QPlainTextEdit * m_text;
    QTimer * m_timer;
};
