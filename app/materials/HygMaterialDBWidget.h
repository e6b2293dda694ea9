#pragma once

#include "materials/HygMaterialChart.h"
#include "materials/HygMaterialDB.h"

#include <QWidget>

#include <map>

class HygChipButton;
class HygMaterialDBProxyModel;
class HygMessageBar;
class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QTableView;
class QToolButton;
namespace KOR {
class Exception;
}

/// Lets the user find, inspect, compare, copy and edit the materials of the database.
class HygMaterialDBWidget : public QWidget {
    Q_OBJECT
public:
    explicit HygMaterialDBWidget(std::shared_ptr<HygMaterialDB> database, QWidget * parent = nullptr);
    ~HygMaterialDBWidget() override;

    /// The file of the current row, empty without one.
    QString currentPath() const;
    /// As soon as the scan has found it.
    void setCurrentPath(const QString & path);
    /// Begins with words to look for; they are dropped if nothing fits.
    void setSearch(const QString & text);
    /// Of all selected rows that can be read.
    QStringList selectedPaths() const;
    const QStringList & comparedPaths() const { return m_compared; }
    QTableView & table() { return *m_table; }
    /// Opens the current material in the editor.
    void edit() { editMaterial(); }
    void showProblem(const QString & text);

signals:
    void currentChanged();
    /// A material was double clicked, or chosen by Enter.
    void activated(const QString & path);

protected:
    void changeEvent(QEvent * event) override;
    void showEvent(QShowEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    struct ActionRow;
    static const ActionRow ACTIONS[];

    QWidget * makeFilters();
    QWidget * makeInspector();
    QWidget * makeTools();
    void setUpTable();
    void retranslate();
    void updateIcons();
    void updateCounts();
    void updateFilter();
    void dropUselessSearch();
    void updateScan();
    void updateActions();
    void updateInspector();
    void updateCategories();
    void showMaterials();
    void takeOver(const QString & path, const HygMaterialLoader::Loaded & result);
    void forget(const QString & path);
    /// Selects a file as soon as the scan has found it.
    void selectLater(const QString & path);
    void tell(const KOR::Exception & problem);

    void createMaterial();
    void editMaterial();
    void copyMaterials();
    void removeMaterials();
    void toggleFavourites();
    void toggleComparison();
    void endComparison();
    void rescan();

    std::shared_ptr<HygMaterialDB> m_database;
    HygMaterialDBProxyModel * m_proxy;
    HygMaterialLoader m_loader;
    std::map<QString, HygMaterialLoader::Loaded> m_loaded; ///< what is shown
    QStringList m_compared;
    bool m_isSearchGiven = false;
    QString m_awaited; ///< path to be selected
    QTimer m_inspectTimer;

    HygMessageBar * m_messages;
    QLineEdit * m_search;
    QComboBox * m_category;
    std::vector<std::pair<HygChipButton *, int>> m_marks;
    QTableView * m_table;
    QLabel * m_empty;
    QLabel * m_count;
    QProgressBar * m_progress;
    QToolButton * m_cancel;
    QLabel * m_name;
    QLabel * m_facts;
    QLabel * m_problem;
    HygMaterialChart * m_chart;
    QLabel * m_comments;
    std::map<QString, QAction *> m_actions;
};
