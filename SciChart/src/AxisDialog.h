#pragma once

#include <SCI/Axis.h>

#include <QDialog>

#include <vector>

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace SCI {

class Chart;

/// Ranges, units and kinds of all axes of a chart, typed. Works on the chart when it is accepted.
class AxisDialog : public QDialog {
    Q_OBJECT
public:
    /// \param focused the axis whose range is typed first
    AxisDialog(Chart & chart, axis_t focused, QWidget * parent);

    void accept() override;

private:
    /// One axis in the dialog.
    struct Row {
        axis_t axis;
        QLineEdit * from;
        QLineEdit * to;
        QCheckBox * isAuto;
        QComboBox * unit;
        QComboBox * scale;
        Range range; ///< as it was, in the unit that is chosen
    };

    void addRow(QGridLayout & grid, axis_t axis);
    void showRange(Row & row);
    void check();
    /// Empty when the range can be used.
    QString problem(const Row & row, Range & range) const;
    bool readNumber(const Row & row, const QString & text, double & value) const;

    Chart & m_chart;
    std::vector<Row> m_rows;
    QLabel * m_message;
    QDialogButtonBox * m_buttons;
};

} // namespace SCI
