#pragma once

#include <QDialog>

class QTextBrowser;
class QToolButton;

/// Shows pages of the user guide beside the work.
class HygHelpWindow : public QDialog {
    Q_OBJECT
public:
    /// The property by which a widget names its page; the F1 key takes that of the innermost widget around the focus.
    static constexpr const char * PAGE_PROPERTY = "helpPage";

    /// \param directory of the guide: English pages in it, those of other languages in folders of their two letters
    HygHelpWindow(QString directory, QWidget * parent);

    /// \param page name without suffix; one that does not exist shows the contents
    void showPage(const QString & page, const QString & langId);
    QString currentPage() const;

protected:
    void changeEvent(QEvent * event) override;

private:
    void retranslate();

    QString m_directory;
    QString m_langId;
    QTextBrowser * m_browser;
    QToolButton * m_contents;
    QToolButton * m_back;
    QToolButton * m_forward;
};
