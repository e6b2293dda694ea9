#pragma once

#include <QWidget>

#include <functional>
#include <map>

class HygMaterialDB;
class HygProjectHandler;
class HygProjectMaterialFiles;
class QAction;
class QLabel;
class QTreeWidget;
class QTreeWidgetItem;
namespace KOR {
class Exception;
}

/// The materials of the project: what they are called, where they are used, and what is wrong with their files.
class HygProjectMaterialsWidget : public QWidget {
    Q_OBJECT
public:
    HygProjectMaterialsWidget(HygProjectHandler & projects, HygMaterialDB & database, QWidget * parent = nullptr);

    /// Asks for another material in the place of one; what is assigned stays assigned. Throws as
    /// HygProjectMaterials::reference().
    static void chooseOther(HygProjectHandler & projects, std::size_t index, QWidget * parent);

    /// Adds materials of the database.
    void add(const QStringList & paths);

signals:
    /// The file of the material that was chosen.
    void currentChanged(const QString & path);
    void problem(const QString & text);

protected:
    void changeEvent(QEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    /// The names have the most of the width.
    void fitColumns();
    struct ActionRow;
    static const ActionRow ACTIONS[];

    void retranslate();
    void update();
    void updateActions();
    int current() const;
    void attempt(const std::function<void()> & action);
    void replace(int index);
    void itemClicked(QTreeWidgetItem * item, int column);

    void addMaterial();
    void replaceMaterial();
    void editMaterial();
    void removeMaterial();
    void removeUnused();
    void acceptChange();

    HygProjectHandler & m_projects;
    HygMaterialDB & m_database;
    HygProjectMaterialFiles & m_files;
    QLabel * m_title;
    QLabel * m_empty;
    QTreeWidget * m_list;
    std::map<QString, QAction *> m_actions;
};
