#pragma once

#include "document/HygJournal.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTreeWidget;

/// Offers the unsaved changes that programs left which ended without saving. It knows the journals and nothing of projects.
class HygRecoveryDialog : public QDialog {
    Q_OBJECT
public:
    enum choice_t { Later, OpenRecovered, OpenFile, OpenBoth };

    /// \param entries at least one
    HygRecoveryDialog(std::vector<HygJournal::Entry> entries, QWidget * parent);

    /// What the user wants with entry().
    choice_t choice() const { return m_choice; }
    const HygJournal::Entry & entry() const;

signals:
    /// The user gives the changes up for good.
    void discarded(const HygJournal::Entry & entry);

private:
    QPushButton * addChoice(const char * name, const QString & text, const QString & toolTip, choice_t choice);
    void fill();
    void updateOffers();
    void discard();

    std::vector<HygJournal::Entry> m_entries;
    choice_t m_choice = Later;
    QTreeWidget * m_list;
    QLabel * m_hint;
    QPushButton * m_openRecovered;
    QPushButton * m_openFile;
    QPushButton * m_openBoth;
};
