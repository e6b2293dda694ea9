#pragma once

#include <HYGRION/Project.h>

#include <QDialog>

class QDialogButtonBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace QtExt {
class ValueEdit;
}

/// Edits a copy of one schedule of outputs: intervals of time with a step each.
class HygScheduleDialog : public QDialog {
    Q_OBJECT
public:
    HygScheduleDialog(const HYGRION::Project & project, const HYGRION::OutputGrid & grid, QWidget * parent = nullptr);

    HYGRION::OutputGrid grid() const;

private:
    /// The fields of one interval.
    struct Line {
        QtExt::ValueEdit * start;
        QtExt::ValueEdit * end;
        QtExt::ValueEdit * step;
        QWidget * remove;
    };

    void addLine(const HYGRION::Interval & interval);
    void removeLine(QWidget * button);
    void check();

    const HYGRION::Project & m_project;
    HYGRION::OutputGrid m_grid;
    QLineEdit * m_name;
    QGridLayout * m_table;
    std::vector<Line> m_lines;
    QLabel * m_message;
    QDialogButtonBox * m_buttons;
};
