#pragma once

#include <QDialog>

#include <optional>

class QCheckBox;

/// Asks what is to become of the results that a project has already.
class HygSimulationRunRequestDialog : public QDialog {
    Q_OBJECT
public:
    enum answer_t { Cancel, FromBegin, Continue };

    /// \param restartTime from which the run can be continued [s]; nothing when it cannot
    /// \param clear whether the check box is set at first
    HygSimulationRunRequestDialog(std::optional<double> restartTime, bool clear, QWidget * parent = nullptr);

    /// Shows the dialog and waits for the answer.
    answer_t ask();
    bool clearResultDirectory() const;

private:
    answer_t m_answer = Cancel;
    QCheckBox * m_clear;
};
