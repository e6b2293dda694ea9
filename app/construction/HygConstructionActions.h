#pragma once

#include <QString>

#include <map>
#include <utility>
#include <vector>

class HygConstructionView;
class QAction;
class QMenu;
class QToolBar;
class QToolButton;
struct HygConstructionScene;

/// The actions of the construction view: one table of names, texts, keys, places and what they need and do.
class HygConstructionActions {
public:
    explicit HygConstructionActions(HygConstructionView & view);

    QAction & action(const char * name) const;
    void fillTools(QToolBar & tools);
    /// What can be done to the selected cells.
    void fillMenu(QMenu & menu) const;
    void retranslate();
    /// Offers what can be done now.
    void update(const HygConstructionScene & scene);

private:
    struct Row;
    static const Row ROWS[];

    HygConstructionView & m_view;
    std::map<QString, QAction *> m_actions;
    std::vector<std::pair<QToolButton *, const char *>> m_groupButtons;
};
