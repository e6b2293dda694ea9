#include "outputs/HygScheduleDialog.h"

#include "HygIconEngine.h"

#include <QtExt/Palette.h>
#include <QtExt/ValueEdit.h>

#include <KOR/Exception.h>
#include <KOR/UnitList.h>

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

using HYGRION::Interval;
using HYGRION::OutputGrid;
using para_t = Interval::para_t;

HygScheduleDialog::HygScheduleDialog(const HYGRION::Project & project, const OutputGrid & grid, QWidget * parent)
    : QDialog(parent), m_project(project), m_grid(grid), m_name(new QLineEdit(this)), m_table(new QGridLayout),
      m_message(new QLabel(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this)) {
    setObjectName(QStringLiteral("scheduleDialog"));
    setWindowTitle(tr("Schedule of outputs"));
    m_name->setObjectName(QStringLiteral("scheduleName"));
    m_name->setText(QString::fromStdString(grid.m_name));
    m_name->setToolTip(tr("Name by which outputs refer to the schedule"));
    auto * layout = new QVBoxLayout(this);
    auto * form = new QFormLayout;
    form->addRow(tr("&Name"), m_name);
    layout->addLayout(form);
    layout->addLayout(m_table);
    const QString TITLES[] = {tr("From"), tr("To"), tr("Every")};
    for (int column = 0; column < 3; ++column)
        m_table->addWidget(new QLabel(TITLES[column], this), 0, column);
    auto * add = new QPushButton(tr("Add &interval"), this);
    add->setObjectName(QStringLiteral("addInterval"));
    add->setAutoDefault(false);
    add->setToolTip(tr("A further span of time with a step of its own, behind the others"));
    layout->addWidget(add, 0, Qt::AlignLeft);
    layout->addStretch(1);
    m_message->setObjectName(QStringLiteral("scheduleMessage"));
    m_message->setWordWrap(true);
    m_message->setMinimumHeight(2 * m_message->fontMetrics().lineSpacing());
    m_message->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_message->setStyleSheet(
        QStringLiteral("color: %1").arg(QtExt::Palette::color(QtExt::Palette::WARNING_TEXT).name()));
    layout->addWidget(m_message);
    layout->addWidget(m_buttons);
    m_buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));

    for (const Interval & interval : grid.m_intervals)
        addLine(interval);
    connect(add, &QPushButton::clicked, this, [this] {
        Interval next;
        next.m_para.set(para_t::StepSize, 1, "h");
        if (!m_lines.empty() && !m_lines.back().end->parameter().empty())
            next.m_para.insert(para_t::Start, KOR::Parameter("Start", m_lines.back().end->parameter().ioValue(),
                                                             m_lines.back().end->parameter().ioUnit()));
        addLine(next);
        m_lines.back().start->setFocus();
    });
    connect(m_name, &QLineEdit::textChanged, this, &HygScheduleDialog::check);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    check();
}

void HygScheduleDialog::addLine(const Interval & interval) {
    Interval shown = interval;
    if (std::isfinite(shown.end()) && shown.m_para.find(para_t::End) == nullptr)
        shown.m_para.set(para_t::End, shown.end() / 86400, "d"); // instead of a duration
    const auto edit = [&](para_t key, const char * objectName, const QString & name, const QString & toolTip) {
        auto * field = new QtExt::ValueEdit(this);
        const KOR::Parameter * given = shown.m_para.find(key);
        // Without a value the unit still has to be known.
        const KOR::Parameter empty({}, 0, KOR::Unit(HYGRION::KeywordList::Unit(key)));
        field->setEmptyAllowed(true);
        field->setParameter(given != nullptr ? *given : empty);
        field->setMinimum(0, KOR::Unit("s"), key == para_t::StepSize);
        field->setObjectName(QLatin1String(objectName) + QString::number(m_lines.size()));
        field->setAccessibleName(name);
        field->setToolTip(toolTip);
        connect(field, &QLineEdit::textChanged, this, &HygScheduleDialog::check);
        return field;
    };
    auto * remove = new QToolButton(this);
    remove->setIcon(HygIconEngine::icon(QStringLiteral("remove")));
    remove->setToolTip(tr("Remove this interval"));
    remove->setAccessibleName(remove->toolTip());
    connect(remove, &QToolButton::clicked, this, [this, remove] { removeLine(remove); });
    const Line line{
        edit(para_t::Start, "start", tr("From"), tr("Simulated time at which the interval begins; empty for 0")),
        edit(para_t::End, "end", tr("To"), tr("Simulated time at which it ends; empty for the end of the simulation")),
        edit(para_t::StepSize, "step", tr("Every"), tr("Time between two values, usually 1 h to 1 d")), remove};
    const int row = m_table->rowCount();
    QWidget * fields[] = {line.start, line.end, line.step, remove};
    for (int column = 0; column < 4; ++column)
        m_table->addWidget(fields[column], row, column);
    m_lines.push_back(line);
    check();
}

void HygScheduleDialog::removeLine(QWidget * button) {
    const auto found =
        std::find_if(m_lines.begin(), m_lines.end(), [&](const Line & line) { return line.remove == button; });
    if (found == m_lines.end())
        return;
    for (QWidget * field : {static_cast<QWidget *>(found->start), static_cast<QWidget *>(found->end),
                            static_cast<QWidget *>(found->step), found->remove})
        field->deleteLater();
    m_lines.erase(found);
    check();
}

OutputGrid HygScheduleDialog::grid() const {
    OutputGrid grid;
    grid.m_name = m_name->text().trimmed().toStdString();
    for (const Line & line : m_lines) {
        Interval & interval = grid.m_intervals.emplace_back();
        const auto take = [&interval](const QtExt::ValueEdit * field, para_t key) {
            const KOR::Parameter value = field->parameter();
            if (!value.empty())
                interval.m_para.set(key, value.ioValue(), value.ioUnit());
        };
        take(line.start, para_t::Start);
        take(line.end, para_t::End);
        take(line.step, para_t::StepSize);
    }
    return grid;
}

void HygScheduleDialog::check() {
    QString message;
    const OutputGrid wanted = grid();
    const auto & grids = m_project.m_outputs.m_outputGrids;
    if (wanted.m_name.empty())
        message = tr("The schedule needs a name.");
    else if (wanted.m_name != m_grid.m_name &&
             std::any_of(grids.begin(), grids.end(), [&](const OutputGrid & g) { return g.m_name == wanted.m_name; }))
        message = tr("There is already a schedule with this name.");
    for (const Line & line : m_lines)
        for (const QtExt::ValueEdit * field : {line.start, line.end, line.step})
            if (message.isEmpty() && !field->isValid())
                message = field->errorText();
    if (message.isEmpty())
        try {
            wanted.checkParameters();
        } catch (const KOR::Exception & ex) {
            message = QString::fromStdString(ex.cause());
        }
    m_message->setText(message);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(message.isEmpty());
}
