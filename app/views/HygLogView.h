#pragma once

#include "HygLogModel.h"

#include <QWidget>

#include <array>

class HygChipButton;
class HygLogFilter;
class QAction;
class QLabel;
class QLineEdit;
class QTableView;
class QToolButton;

/// The log of this run with switches for the kinds of messages and a search field.
class HygLogView : public QWidget {
    Q_OBJECT
public:
    explicit HygLogView(HygLogModel & model, QWidget * parent = nullptr);

    /// Puts the cursor into the search field.
    void startSearch();
    /// Copies the selected messages, or all that are shown when none is selected.
    void copy();

protected:
    void changeEvent(QEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    void setUpTable();
    void setUpTools();
    void updateCounts();
    void updateIcons();
    void retranslate();

    HygLogModel & m_model;
    HygLogFilter * m_filter;
    QTableView * m_table;
    QLineEdit * m_search;
    QLabel * m_shown;
    QAction * m_searchAction;
    QToolButton * m_copy;
    QToolButton * m_clear;
    std::array<HygChipButton *, HygLogModel::NUM_KINDS> m_kinds{};
    bool m_isAtEnd = true;
};
