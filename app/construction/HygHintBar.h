#pragma once

#include "construction/HygConstructionHint.h"

#include <QFutureWatcher>
#include <QScrollArea>
#include <QTimer>

class HygConstructionEditor;
class QMenu;
class QVBoxLayout;

/// Says in a strip below the drawing what the construction lacks; each line has links that show it or mend it. A thread
/// looks for it, so that large constructions can be edited meanwhile.
class HygHintBar : public QScrollArea {
    Q_OBJECT
public:
    HygHintBar(HygConstructionEditor & editor, const HygConstructionScene & scene, QWidget * parent = nullptr);
    ~HygHintBar() override;

    /// The scene has changed. Several changes in a row are looked through once.
    /// \param isNewProject what is shown belongs to another project
    void sceneChanged(bool isNewProject = false);
    /// Whether what is shown may be out of date.
    bool isLooking() const { return m_delay.isActive() || m_isSearching; }

    const std::vector<HygConstructionHint> & hints() const { return m_hints; }
    /// A hint in words.
    QString textOf(std::size_t index) const;
    /// What can be done about a hint, as entries of a menu.
    void fillMenu(QMenu & menu, std::size_t index);

signals:
    void hintsChanged();
    /// The user wants to see the cells.
    void showRequested(const HygConstructionHint & hint);
    /// The user wants to choose what to assign to the cells.
    void chooseRequested(const HygConstructionHint & hint);

protected:
    void changeEvent(QEvent * event) override;

private:
    struct Offer {
        QString target;
        QString text;
    };
    void look();
    void takeOver();
    void showHints();
    void fixHeight();
    void follow(const QString & target, std::size_t index);
    std::vector<Offer> offers(std::size_t index) const;
    QString lineOf(std::size_t index) const;
    QString lineOfEdges() const;

    HygConstructionEditor & m_editor;
    const HygConstructionScene & m_scene;
    QWidget * m_list;
    QVBoxLayout * m_layout;
    QTimer m_delay;
    QFutureWatcher<std::vector<HygConstructionHint>> m_search;
    bool m_isSearching = false; ///< until the result has been taken over
    bool m_isOutdated = false;  ///< the scene has changed since the search began
    std::vector<HygConstructionHint> m_hints;
};
