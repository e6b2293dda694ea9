#pragma once

#include <QWidget>

class HygProjectCard;
class QLabel;
class QPushButton;

/// The start page: what the user may want first. It knows files by their path and nothing of projects.
class HygStartView : public QWidget {
    Q_OBJECT
public:
    explicit HygStartView(QWidget * parent = nullptr);

    /// Newest first.
    void setRecentProjects(const QStringList & paths);
    /// Shows the project files of a directory by their names.
    void setExamplesDirectory(const QString & directory);
    /// Whether somebody answers newProjectRequested(), or the requests to open: what nobody answers is not offered.
    void setOffers(bool canCreate, bool canOpen);

signals:
    void newProjectRequested();
    void chooseProjectRequested();
    void openProjectRequested(const QString & path);
    void removeRecentRequested(const QString & path);
    void removeMissingRequested();

protected:
    void changeEvent(QEvent * event) override;

private:
    void retranslate();
    void updateFonts();

    QLabel * m_logo;
    QLabel * m_title;
    QLabel * m_subtitle;
    QPushButton * m_new;
    QPushButton * m_open;
    HygProjectCard * m_recent;
    HygProjectCard * m_examples;
};
