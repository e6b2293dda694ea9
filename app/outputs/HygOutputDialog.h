#pragma once

#include "outputs/HygOutputPlaces.h"

#include <QDialog>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;

/// Edits a copy of one output: what is written, of which cells or sides, and when.
class HygOutputDialog : public QDialog {
    Q_OBJECT
public:
    /// \param file the output as it is; its name is taken by nobody else when it is its own
    HygOutputDialog(const HYGRION::Project & project, const HYGRION::OutputFile & file, QWidget * parent = nullptr);

    HYGRION::OutputFile file() const;
    HygOutputPlaces::Place place() const;

private:
    void fillQuantities();
    void fillUnits();
    void check();

    const HYGRION::Project & m_project;
    HYGRION::OutputFile m_file;
    std::vector<HygOutputPlaces::Place> m_places;
    QLineEdit * m_name;
    QComboBox * m_quantity;
    QComboBox * m_unit;
    QComboBox * m_place;
    QComboBox * m_space;
    QComboBox * m_time;
    QComboBox * m_schedule;
    QLabel * m_message;
    QDialogButtonBox * m_buttons;
};
