#include "outputs/HygOutputDialog.h"

#include "outputs/HygOutputTexts.h"

#include <QtExt/Palette.h>

#include <SOLVER/OutputQuantities.h>
#include <SOLVER/OutputWriter.h>

#include <KOR/Exception.h>
#include <KOR/UnitList.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

using HYGRION::OutputFile;

namespace {

const SOLVER::OutputQuantity * known(const QString & keyword) {
    for (const SOLVER::OutputQuantity & quantity : SOLVER::outputQuantities())
        if (keyword == QString::fromUtf8(quantity.keyword.data(), static_cast<int>(quantity.keyword.size())))
            return &quantity;
    return nullptr;
}

} // namespace

HygOutputDialog::HygOutputDialog(const HYGRION::Project & project, const OutputFile & file, QWidget * parent)
    : QDialog(parent), m_project(project), m_file(file), m_places(HygOutputPlaces::offered(project)),
      m_name(new QLineEdit(this)), m_quantity(new QComboBox(this)), m_unit(new QComboBox(this)),
      m_place(new QComboBox(this)), m_space(new QComboBox(this)), m_time(new QComboBox(this)),
      m_schedule(new QComboBox(this)), m_message(new QLabel(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this)) {
    setObjectName(QStringLiteral("outputDialog"));
    setWindowTitle(tr("Output"));
    auto * form = new QFormLayout(this);
    const auto add = [&](const char * objectName, const QString & label, QWidget * field, const QString & toolTip) {
        field->setObjectName(QLatin1String(objectName));
        field->setToolTip(toolTip);
        form->addRow(label, field);
    };
    add("outputName", tr("&Name"), m_name, tr("Name of the output and of its result file"));
    add("outputQuantity", tr("&Quantity"), m_quantity, QString());
    add("outputUnit", tr("&Unit"), m_unit, tr("Unit in which the values are written"));
    add("outputPlace", tr("&Where"), m_place,
        tr("Cells or sides of which values are written; in the construction view any others can be assigned"));
    add("outputSpace", tr("In &space"), m_space,
        tr("One value for each cell or side makes profiles and fields; means and sums make courses over time"));
    add("outputTime", tr("In &time"), m_time, tr("Fluxes are best written as means, which leave no peak out"));
    add("outputSchedule", tr("S&chedule"), m_schedule, tr("When values are written"));
    m_message->setObjectName(QStringLiteral("outputMessage"));
    m_message->setWordWrap(true);
    m_message->setMinimumHeight(2 * m_message->fontMetrics().lineSpacing());
    m_message->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    form->addRow(m_message);
    form->addRow(m_buttons);
    m_buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));

    m_name->setText(QString::fromStdString(file.m_name));
    fillQuantities();
    const HygOutputPlaces::Place place = HygOutputPlaces::of(project, file.m_name);
    const auto same = std::find_if(m_places.begin(), m_places.end(),
                                   [&place](const HygOutputPlaces::Place & p) { return p.text == place.text; });
    int current = static_cast<int>(same - m_places.begin());
    if (same == m_places.end()) {
        current = static_cast<int>(m_places.size());
        m_places.push_back(place);
        if (place.text.isEmpty())
            m_places.back().text = tr("nowhere");
    }
    for (const HygOutputPlaces::Place & offered : m_places)
        m_place->addItem(offered.text);
    m_place->setCurrentIndex(current);
    for (int type = 0; type <= static_cast<int>(OutputFile::space_type_t::Max); ++type)
        m_space->addItem(HygOutputTexts::spaceType(static_cast<OutputFile::space_type_t>(type)));
    m_space->setCurrentIndex(static_cast<int>(file.m_spaceType));
    for (int type = 0; type <= static_cast<int>(OutputFile::time_type_t::Max); ++type)
        m_time->addItem(HygOutputTexts::timeType(static_cast<OutputFile::time_type_t>(type)));
    m_time->setCurrentIndex(static_cast<int>(file.m_timeType));
    for (const HYGRION::OutputGrid & grid : project.m_outputs.m_outputGrids)
        m_schedule->addItem(
            QStringLiteral("%1 (%2)").arg(QString::fromStdString(grid.m_name), HygOutputTexts::schedule(grid)),
            QString::fromStdString(grid.m_name));
    m_schedule->setCurrentIndex(std::max(0, m_schedule->findData(QString::fromStdString(file.m_outputGrid))));
    fillUnits();

    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_name, &QLineEdit::textChanged, this, &HygOutputDialog::check);
    connect(m_quantity, qOverload<int>(&QComboBox::currentIndexChanged), this, &HygOutputDialog::fillUnits);
    connect(m_place, qOverload<int>(&QComboBox::currentIndexChanged), this, &HygOutputDialog::check);
    connect(m_space, qOverload<int>(&QComboBox::currentIndexChanged), this, &HygOutputDialog::fillUnits);
    connect(m_time, qOverload<int>(&QComboBox::currentIndexChanged), this, &HygOutputDialog::fillUnits);
    check();
    resize(460, sizeHint().height());
}

void HygOutputDialog::fillQuantities() {
    for (const SOLVER::OutputQuantity & quantity : SOLVER::outputQuantities()) {
        m_quantity->addItem(HygOutputTexts::quantity(quantity.keyword),
                            QString::fromUtf8(quantity.keyword.data(), static_cast<int>(quantity.keyword.size())));
        m_quantity->setItemData(m_quantity->count() - 1, m_quantity->itemData(m_quantity->count() - 1),
                                Qt::ToolTipRole);
    }
    const QString keyword = QString::fromStdString(m_file.m_quantity);
    if (m_quantity->findData(keyword) < 0)
        m_quantity->addItem(keyword, keyword); // of another version: it stays until another one is chosen
    m_quantity->setCurrentIndex(m_quantity->findData(keyword));
    m_quantity->setMaxVisibleItems(20);
}

void HygOutputDialog::fillUnits() {
    const SOLVER::OutputQuantity * quantity = known(m_quantity->currentData().toString());
    const QString before =
        m_unit->count() > 0 ? m_unit->currentData().toString() : QString::fromStdString(m_file.m_outputUnit.name());
    const QSignalBlocker blocker(m_unit);
    m_unit->clear();
    const auto addUnit = [this](KOR::Unit unit) {
        const QString name = QString::fromStdString(unit.name());
        const QString shown = QString::fromStdString(unit.displayName());
        m_unit->addItem(shown.isEmpty() ? name : shown, name);
    };
    if (quantity != nullptr) {
        OutputFile plain = file();
        plain.m_outputUnit = {};
        const SOLVER::OutputWriter::Units units = SOLVER::OutputWriter::unitsOf(plain, *quantity);
        const KOR::UnitList & list = KOR::UnitList::instance();
        for (std::size_t i = 0; i < list.size(); ++i)
            if (list.retrieve(i).base == list.retrieve(units.base.name()).index)
                addUnit(KOR::Unit(i));
        const int same = m_unit->findData(before);
        m_unit->setCurrentIndex(same >= 0 ? same : m_unit->findData(QString::fromStdString(units.written.name())));
    } else
        m_unit->addItem(before, before);
    check();
}

void HygOutputDialog::check() {
    const QString name = m_name->text().trimmed();
    const HygOutputPlaces::Place chosen = place();
    const SOLVER::OutputQuantity * quantity = known(m_quantity->currentData().toString());
    const auto & files = m_project.m_outputs.m_outputFiles;
    QString message;
    if (name.isEmpty())
        message = tr("The output needs a name.");
    else if (name.toStdString() != m_file.m_name && std::any_of(files.begin(), files.end(), [&](const OutputFile & f) {
                 return f.m_name == name.toStdString();
             }))
        message = tr("There is already an output with this name.");
    else if (quantity == nullptr)
        message = tr("The solver does not know this quantity.");
    else if (quantity->kind == SOLVER::OutputQuantity::FLUX && !chosen.assignments.empty() && !chosen.isOnSide)
        message = tr("This quantity exists on sides only; choose a surface.");
    else if (chosen.isOnSide && quantity->ofSurface == nullptr)
        message = tr("This quantity exists in cells only; choose cells.");
    m_message->setText(message);
    m_message->setStyleSheet(
        QStringLiteral("color: %1").arg(QtExt::Palette::color(QtExt::Palette::WARNING_TEXT).name()));
    if (message.isEmpty() && quantity != nullptr) {
        m_message->setStyleSheet({});
        if (m_space->currentIndex() == static_cast<int>(OutputFile::space_type_t::Single))
            m_message->setText(tr("Shown in the results as a profile or a field."));
        else
            m_message->setText(tr("Shown in the results as a course over time."));
    }
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(message.isEmpty());
}

OutputFile HygOutputDialog::file() const {
    OutputFile file = m_file;
    file.m_name = m_name->text().trimmed().toStdString();
    file.m_quantity = m_quantity->currentData().toString().toStdString();
    if (const QString unit = m_unit->currentData().toString(); !unit.isEmpty())
        file.m_outputUnit = KOR::Unit(unit.toStdString());
    file.m_spaceType = static_cast<OutputFile::space_type_t>(m_space->currentIndex());
    file.m_timeType = static_cast<OutputFile::time_type_t>(m_time->currentIndex());
    file.m_outputGrid = m_schedule->currentData().toString().toStdString();
    return file;
}

HygOutputPlaces::Place HygOutputDialog::place() const {
    const auto index = static_cast<std::size_t>(std::max(0, m_place->currentIndex()));
    return index < m_places.size() ? m_places[index] : HygOutputPlaces::Place();
}
