#include "AxisDialog.h"

#include "Calendar.h"
#include "UnitScale.h"

#include <SCI/Chart.h>

#include <KOR/Numbers.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace SCI {

namespace {
constexpr const char * AXIS_NAMES[] = {
    QT_TRANSLATE_NOOP("SCI::AxisDialog", "Left"), QT_TRANSLATE_NOOP("SCI::AxisDialog", "Right"),
    QT_TRANSLATE_NOOP("SCI::AxisDialog", "Bottom"), QT_TRANSLATE_NOOP("SCI::AxisDialog", "Top")};
constexpr const char * WORDS[] = {"yLeft", "yRight", "xBottom", "xTop"}; // of object names
constexpr const char * SCALE_NAMES[] = {QT_TRANSLATE_NOOP("SCI::AxisDialog", "Linear"),
                                        QT_TRANSLATE_NOOP("SCI::AxisDialog", "Logarithmic"),
                                        QT_TRANSLATE_NOOP("SCI::AxisDialog", "Date")};
constexpr int DIGITS = 8;

bool isTime(const QString & unit) {
    return UnitScale::alternatives(QStringLiteral("s")).contains(unit);
}

double secondsPer(const QString & unit) {
    return UnitScale(unit, QStringLiteral("s")).factor();
}

} // namespace

AxisDialog::AxisDialog(Chart & chart, axis_t focused, QWidget * parent)
    : QDialog(parent), m_chart(chart), m_message(new QLabel(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this)) {
    setObjectName(QStringLiteral("axisDialog"));
    setWindowTitle(tr("Ranges and units"));
    auto * grid = new QGridLayout;
    int column = 1;
    for (const QString & text : {tr("From"), tr("To"), tr("Automatic"), tr("Unit"), tr("Scale")})
        grid->addWidget(new QLabel(text, this), 0, column++);
    for (int i = 0; i < NUM_AXES; ++i)
        if (chart.isUsed(static_cast<axis_t>(i)))
            addRow(*grid, static_cast<axis_t>(i));
    m_message->setObjectName(QStringLiteral("message"));
    m_message->setWordWrap(true);
    auto * layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(m_message);
    layout->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &AxisDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &AxisDialog::reject);
    for (const Row & row : m_rows)
        if (row.axis == focused) {
            row.from->setFocus();
            row.from->selectAll();
        }
    check();
}

void AxisDialog::addRow(QGridLayout & grid, axis_t axis) {
    const Axis & shown = m_chart.axis(axis);
    const QString word = QLatin1String(WORDS[axis]);
    const QString title = shown.title.isEmpty() && shown.scale == DATE ? tr("Time") : shown.title;
    const QString name =
        title.isEmpty() ? tr(AXIS_NAMES[axis]) : QStringLiteral("%1 (%2)").arg(title, tr(AXIS_NAMES[axis]));
    Row row{axis,
            new QLineEdit(this),
            new QLineEdit(this),
            new QCheckBox(this),
            new QComboBox(this),
            new QComboBox(this),
            m_chart.range(axis)};
    const QString hint = tr("A number in the unit of the axis, or a date such as 15.03.2021 12:00");
    const std::pair<QWidget *, const char *> widgets[] = {
        {row.from,   "From" },
        {row.to,     "To"   },
        {row.isAuto, "Auto" },
        {row.unit,   "Unit" },
        {row.scale,  "Scale"}
    };
    const int line = grid.rowCount();
    grid.addWidget(new QLabel(name, this), line, 0);
    int column = 1;
    for (const auto & [widget, part] : widgets) {
        widget->setObjectName(word + QLatin1String(part));
        const auto * heading = qobject_cast<QLabel *>(grid.itemAtPosition(0, column)->widget());
        widget->setAccessibleName(QStringLiteral("%1: %2").arg(name, heading->text()));
        grid.addWidget(widget, line, column++);
    }
    for (QLineEdit * edit : {row.from, row.to}) {
        edit->setToolTip(hint);
        edit->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00.00.0000 00:00:00")));
    }
    row.isAuto->setToolTip(tr("The range that the visible series cover"));
    row.isAuto->setChecked(m_chart.isAutoRange(axis));
    for (const QString & unit : UnitScale::alternatives(shown.dataUnit)) {
        const QString printed = UnitScale::printed(unit);
        row.unit->addItem(printed.isEmpty() ? QStringLiteral("–") : printed, unit);
    }
    row.unit->setCurrentIndex(row.unit->findData(shown.unit()));
    row.unit->setToolTip(tr("Unit of the numbers at the axis"));
    for (int k = 0; k < (isTime(shown.dataUnit) ? 3 : 2); ++k)
        row.scale->addItem(tr(SCALE_NAMES[k]));
    row.scale->setCurrentIndex(shown.scale);
    row.scale->setToolTip(tr("How values lie along the axis; a logarithmic one leaves out what is not above 0"));
    showRange(row);
    m_rows.push_back(row);
    const std::size_t index = m_rows.size() - 1;
    for (QLineEdit * edit : {row.from, row.to}) {
        connect(edit, &QLineEdit::textEdited, this, [this, index] {
            m_rows[index].isAuto->setChecked(false);
            check();
        });
    }
    connect(row.isAuto, &QCheckBox::toggled, this, &AxisDialog::check);
    connect(row.scale, qOverload<int>(&QComboBox::currentIndexChanged), this, [this, index] {
        showRange(m_rows[index]);
        check();
    });
    connect(row.unit, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this, index, before = shown.unit()]() mutable {
                // What is typed keeps its meaning in the other unit.
                Row & changed = m_rows[index];
                Range range;
                if (problem(changed, range).isEmpty())
                    changed.range = range;
                const UnitScale scale(before, changed.unit->currentData().toString());
                changed.range = {scale.shown(changed.range.from), scale.shown(changed.range.to)};
                before = changed.unit->currentData().toString();
                showRange(changed);
                check();
            });
}

void AxisDialog::showRange(Row & row) {
    const auto text = [&](double value) {
        if (row.scale->currentIndex() == DATE)
            return Calendar::typed(value * secondsPer(row.unit->currentData().toString()),
                                   m_chart.axis(row.axis).startYear);
        return QString::fromStdString(KOR::toString(value, DIGITS));
    };
    row.from->setText(text(row.range.from));
    row.to->setText(text(row.range.to));
}

bool AxisDialog::readNumber(const Row & row, const QString & text, double & value) const {
    if (row.scale->currentIndex() == DATE) {
        const auto seconds = Calendar::fromTyped(text, m_chart.axis(row.axis).startYear);
        value = seconds.value_or(0) / secondsPer(row.unit->currentData().toString());
        return seconds.has_value();
    }
    QString plain = text;
    const auto number = KOR::parseDouble(plain.replace(QLatin1Char(','), QLatin1Char('.')).toStdString());
    value = number.value_or(0);
    return number.has_value();
}

QString AxisDialog::problem(const Row & row, Range & range) const {
    for (const auto & [edit, value] : {std::pair(row.from, &range.from), std::pair(row.to, &range.to)})
        if (!readNumber(row, edit->text(), *value))
            return row.scale->currentIndex() == DATE
                       ? tr("'%1' is no date, expected 15.03.2021 12:00.").arg(edit->text())
                       : tr("'%1' is no number.").arg(edit->text());
    if (!(range.from < range.to))
        return tr("The range must begin below its end.");
    if (row.scale->currentIndex() == LOGARITHMIC && !(range.from > 0))
        return tr("A logarithmic axis begins above 0.");
    return {};
}

void AxisDialog::check() {
    QString message;
    for (const Row & row : m_rows) {
        Range range;
        if (message.isEmpty() && !row.isAuto->isChecked())
            message = problem(row, range);
    }
    for (const Row & row : m_rows) // dates have no unit
        row.unit->setEnabled(row.scale->currentIndex() != DATE);
    m_message->setText(message);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(message.isEmpty());
}

void AxisDialog::accept() {
    for (const Row & row : m_rows) {
        Axis axis = m_chart.axis(row.axis);
        axis.shownUnit = row.unit->currentData().toString();
        axis.scale = static_cast<scale_t>(row.scale->currentIndex());
        m_chart.setAxis(row.axis, axis);
        Range range;
        if (row.isAuto->isChecked() || !problem(row, range).isEmpty())
            m_chart.setAutoRange(row.axis);
        else
            m_chart.setRange(row.axis, range);
    }
    QDialog::accept();
}

} // namespace SCI
