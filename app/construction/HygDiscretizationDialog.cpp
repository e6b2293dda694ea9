#include "construction/HygDiscretizationDialog.h"

#include "construction/HygConstructionScene.h"
#include "construction/HygHatching.h"

#include <QtExt/Palette.h>
#include <QtExt/ValueEdit.h>

#include <KOR/Exception.h>

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTableWidget>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>

namespace {

using HYGRION::Disc;

struct ModeRow {
    const char * text;
    unsigned int mode;
};
constexpr ModeRow MODES[] = {
    {QT_TRANSLATE_NOOP("HygDiscretizationDialog", "at both borders"),   Disc::MODE_BOTH },
    {QT_TRANSLATE_NOOP("HygDiscretizationDialog", "at the start"),      Disc::MODE_START},
    {QT_TRANSLATE_NOOP("HygDiscretizationDialog", "at the end"),        Disc::MODE_END  },
    {QT_TRANSLATE_NOOP("HygDiscretizationDialog", "nowhere: one cell"), Disc::MODE_NONE },
};

constexpr std::size_t MANY_CELLS = 100'000; ///< from here on a calculation takes days

/// Borders of stack planes across which a material may change.
std::vector<std::uint32_t> planeBorders(const HYGRION::Project & project) {
    const auto count = static_cast<std::uint32_t>(std::max<std::size_t>(project.m_disc.nz(), 1));
    std::set<std::uint32_t> borders{0, count};
    for (const HYGRION::Assignment & assignment : project.m_assignments.m_list)
        if (assignment.m_type == HYGRION::Assignment::type_t::Material && !assignment.isOnSide())
            for (const std::uint32_t border : {assignment.m_range.back, assignment.m_range.front + 1})
                if (border < count)
                    borders.insert(border);
    return {borders.begin(), borders.end()};
}

} // namespace

/// The layers with their cells, to scale, those chosen in the table outlined.
class HygDiscretizationDialog::Preview : public QWidget {
public:
    explicit Preview(HygDiscretizationDialog & dialog) : QWidget(&dialog), m_dialog(dialog) {
        setMinimumHeight(96);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        const Direction & direction = m_dialog.shown();
        const double total = std::accumulate(direction.widths.begin(), direction.widths.end(), 0.0);
        const QRectF area = QRectF(rect()).adjusted(1, 6, -2, -6);
        const std::vector<std::size_t> chosen = m_dialog.chosenLayers();
        double position = 0;
        for (std::size_t n = 0; n < direction.layers.size(); ++n) {
            const double from = area.left() + position / total * area.width();
            const double to = area.left() + (position + direction.widths[n]) / total * area.width();
            const QRectF layer(from, area.top(), to - from, area.height());
            const bool isChosen = std::find(chosen.begin(), chosen.end(), n) != chosen.end();
            QColor ground = m_dialog.colourOf(direction, n);
            painter.fillRect(layer, ground);
            QColor line = HygHatching::contrast(ground);
            line.setAlpha(isChosen ? 210 : 110);
            painter.setPen(QPen(line, 1));
            double cell = position;
            double last = -2;
            for (const double width : direction.divided[n]) {
                const double at = std::floor(area.left() + cell / total * area.width()) + 0.5;
                cell += width;
                if (at - last < 2)
                    continue; // closer lines would only be a smear
                last = at;
                painter.drawLine(QLineF(at, area.top(), at, area.bottom()));
            }
            if (isChosen) {
                painter.setPen(QPen(palette().color(QPalette::Highlight), 3));
                painter.setBrush(Qt::NoBrush);
                painter.drawRect(layer.adjusted(0, -2, 0, 2));
            }
            position += direction.widths[n];
        }
        painter.setPen(palette().color(QPalette::WindowText));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(area);
    }

private:
    HygDiscretizationDialog & m_dialog;
};

HygDiscretizationDialog::HygDiscretizationDialog(const HygConstructionScene & scene, QWidget * parent)
    : QDialog(parent), m_scene(scene), m_direction(new QComboBox(this)), m_table(new QTableWidget(this)),
      m_isDivided(new QCheckBox(this)), m_mode(new QComboBox(this)), m_minStep(new QtExt::ValueEdit(this)),
      m_maxStep(new QtExt::ValueEdit(this)), m_stretch(new QDoubleSpinBox(this)), m_growth(new QComboBox(this)),
      m_preview(new Preview(*this)), m_count(new QLabel(this)), m_problem(new QLabel(this)) {
    setObjectName(QStringLiteral("discretizationDialog"));
    setWindowTitle(tr("Automatic discretization"));
    readLayers(scene);
    auto * layout = new QVBoxLayout(this);
    m_direction->setObjectName(QStringLiteral("discDirection"));
    m_direction->addItem(tr("Columns"), 0);
    if (scene.cells.ny() > 1)
        m_direction->addItem(tr("Rows"), 1);
    if (scene.project->m_disc.nz() > 1)
        m_direction->addItem(tr("Stack planes"), 2);
    m_direction->setAccessibleName(tr("Direction"));
    m_direction->setToolTip(tr("Which cells are divided"));
    m_direction->setVisible(m_direction->count() > 1);
    layout->addWidget(m_direction);
    m_preview->setObjectName(QStringLiteral("discPreview"));
    m_preview->setAccessibleName(tr("Preview of the cells"));
    layout->addWidget(m_preview);
    m_count->setObjectName(QStringLiteral("discCount"));
    layout->addWidget(m_count);

    auto * middle = new QHBoxLayout;
    layout->addLayout(middle, 1);
    m_table->setObjectName(QStringLiteral("discLayers"));
    m_table->setAccessibleName(tr("Layers"));
    m_table->setToolTip(tr("The settings beside hold for the selected layers; Ctrl+A selects all"));
    m_table->setColumnCount(3);
    m_table->setHorizontalHeaderLabels({tr("Layer"), tr("Width"), tr("Cells")});
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    m_table->setShowGrid(false);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_table->setMinimumSize(330, 220);
    middle->addWidget(m_table, 1);

    auto * form = new QFormLayout;
    middle->addLayout(form);
    m_isDivided->setObjectName(QStringLiteral("discDivided"));
    m_isDivided->setText(tr("&Divide anew"));
    m_isDivided->setToolTip(tr("Otherwise the cells of the layer stay as they are"));
    form->addRow(QString(), m_isDivided);
    m_mode->setObjectName(QStringLiteral("discMode"));
    for (const ModeRow & row : MODES)
        m_mode->addItem(tr(row.text), row.mode);
    m_mode->setToolTip(tr("Where the cells are smallest: where temperature and moisture change quickly"));
    form->addRow(tr("&Fine"), m_mode);
    m_minStep->setObjectName(QStringLiteral("discMinStep"));
    m_minStep->setMinimum(0, KOR::Unit("m"), true);
    m_minStep->setToolTip(tr("Width of the smallest cell, usually 0.5 mm to 5 mm"));
    form->addRow(tr("S&mallest cell"), m_minStep);
    m_maxStep->setObjectName(QStringLiteral("discMaxStep"));
    m_maxStep->setMinimum(0, KOR::Unit("m"));
    m_maxStep->setToolTip(tr("Width that no cell exceeds, usually 10 mm to 100 mm; 0 for no limit"));
    form->addRow(tr("&Largest cell"), m_maxStep);
    m_growth->setObjectName(QStringLiteral("discGrowth"));
    m_growth->addItems({tr("geometric"), tr("hyperbolic tangent")});
    m_growth->setToolTip(tr("Geometric: each cell is wider than the one before by the stretch factor"));
    form->addRow(tr("&Growth"), m_growth);
    m_stretch->setObjectName(QStringLiteral("discStretch"));
    m_stretch->setRange(1, 10);
    m_stretch->setDecimals(2);
    m_stretch->setSingleStep(0.05);
    m_stretch->setToolTip(tr("Growth from cell to cell, usually 1.1 to 1.6; larger makes fewer cells"));
    form->addRow(tr("&Stretch factor"), m_stretch);

    m_problem->setObjectName(QStringLiteral("discProblem"));
    m_problem->setWordWrap(true);
    layout->addWidget(m_problem);
    auto * buttons = new QDialogButtonBox(this);
    m_apply = buttons->addButton(tr("&Divide"), QDialogButtonBox::AcceptRole);
    m_apply->setObjectName(QStringLiteral("discApply"));
    buttons->addButton(tr("&Cancel"), QDialogButtonBox::RejectRole);
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_direction, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        m_shown = static_cast<std::size_t>(m_direction->currentData().toInt());
        fillTable();
    });
    connect(m_table, &QTableWidget::itemSelectionChanged, this, [this] { showSettings(); });
    connect(m_isDivided, &QCheckBox::clicked, this, &HygDiscretizationDialog::takeSettings);
    for (QComboBox * box : {m_mode, m_growth})
        connect(box, QOverload<int>::of(&QComboBox::activated), this, &HygDiscretizationDialog::takeSettings);
    for (QtExt::ValueEdit * edit : {m_minStep, m_maxStep}) {
        connect(edit, &QtExt::ValueEdit::valueChanged, this, &HygDiscretizationDialog::takeSettings);
        connect(edit, &QLineEdit::textEdited, this, &HygDiscretizationDialog::takeSettings);
    }
    connect(m_stretch, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &HygDiscretizationDialog::takeSettings);
    fillTable();
    resize(720, 500);
}

void HygDiscretizationDialog::readLayers(const HygConstructionScene & scene) {
    HygGridAxis planes(false);
    planes.setWidths(scene.project->m_disc.m_zSteps, false);
    const struct {
        std::vector<std::uint32_t> borders;
        const HygGridAxis & axis;
        QString one, several;
    } rows[] = {
        {scene.cells.columnBorders(),  scene.x, tr("Column %1"), tr("Columns %1 to %2")},
        {scene.cells.rowBorders(),     scene.y, tr("Row %1"),    tr("Rows %1 to %2")   },
        {planeBorders(*scene.project), planes,  tr("Plane %1"),  tr("Planes %1 to %2") },
    };
    for (std::size_t d = 0; d < m_directions.size(); ++d) {
        Direction & direction = m_directions[d];
        direction.dir = DIRECTIONS[d];
        const auto & borders = rows[d].borders;
        for (std::size_t n = 0; n + 1 < borders.size(); ++n) {
            const std::size_t first = borders[n];
            const std::size_t last = borders[n + 1] - 1;
            direction.layers.push_back({first, last, std::nullopt});
            if (d == 0 && scene.isStack()) // of a detail the user says first what is to change
                direction.layers.back().settings = Disc::LayerSettings{};
            direction.widths.push_back(rows[d].axis.width(first, last));
            std::vector<double> cells;
            for (std::size_t i = first; i <= last; ++i)
                cells.push_back(rows[d].axis.width(i, i));
            direction.cells.push_back(std::move(cells));
            const std::int32_t material =
                d == 0 && scene.isStack() ? scene.cells.material(first, 0) : HygCellPlane::NO_MATERIAL;
            direction.names << (material >= 0
                                    ? QString::fromStdString(
                                          scene.project->m_materials[static_cast<std::size_t>(material)].m_name)
                                : first == last ? rows[d].one.arg(first + 1)
                                                : rows[d].several.arg(first + 1).arg(last + 1));
        }
        update(direction);
    }
}

const HygDiscretizationDialog::Direction & HygDiscretizationDialog::directionOf(unsigned int dir) const {
    return *std::find_if(m_directions.begin(), m_directions.end(),
                         [dir](const Direction & candidate) { return candidate.dir == dir; });
}

QColor HygDiscretizationDialog::colourOf(const Direction & direction, std::size_t layer) const {
    const std::size_t cell = direction.layers[layer].first;
    const bool isLayer = direction.dir == Disc::X && m_scene.isStack();
    const std::int32_t material = isLayer ? m_scene.cells.material(cell, 0) : HygCellPlane::NO_MATERIAL;
    return material >= 0 ? QColor(m_scene.project->m_materials[static_cast<std::size_t>(material)].m_color.rgb())
                         : palette().color(layer % 2 == 0 ? QPalette::Base : QPalette::AlternateBase);
}

const std::vector<HygConstructionEditor::Layer> & HygDiscretizationDialog::layers(unsigned int dir) const {
    return directionOf(dir).layers;
}

bool HygDiscretizationDialog::isChanged(unsigned int dir) const {
    const auto & list = layers(dir);
    return std::any_of(list.begin(), list.end(), [](const auto & layer) { return layer.settings.has_value(); });
}

std::size_t HygDiscretizationDialog::cellCount() const {
    std::size_t product = 1;
    for (const Direction & direction : m_directions) {
        std::size_t count = 0;
        for (const auto & cells : direction.divided)
            count += cells.size();
        product *= count;
    }
    return product;
}

std::vector<std::size_t> HygDiscretizationDialog::chosenLayers() const {
    std::vector<std::size_t> rows;
    for (const QModelIndex & index : m_table->selectionModel()->selectedRows())
        rows.push_back(static_cast<std::size_t>(index.row()));
    return rows;
}

void HygDiscretizationDialog::fillTable() {
    const QScopedValueRollback showing(m_isShowing, true);
    const Direction & direction = shown();
    m_table->setRowCount(static_cast<int>(direction.layers.size()));
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const auto n = static_cast<std::size_t>(row);
        m_table->setItem(row, 0, new QTableWidgetItem(direction.names[row]));
        m_table->setItem(row, 1, new QTableWidgetItem(m_scene.lengthText(direction.widths[n])));
        m_table->setItem(row, 2, new QTableWidgetItem);
        for (const int column : {1, 2})
            m_table->item(row, column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    m_table->selectAll();
    showSettings();
    updateAll();
}

void HygDiscretizationDialog::showSettings(bool isTyping) {
    const QScopedValueRollback showing(m_isShowing, true);
    const std::vector<std::size_t> chosen = chosenLayers();
    const Direction & direction = shown();
    const bool isDivided = !chosen.empty() && direction.layers[chosen.front()].settings.has_value();
    const Disc::LayerSettings settings = isDivided ? *direction.layers[chosen.front()].settings : Disc::LayerSettings{};
    m_isDivided->setEnabled(!chosen.empty());
    m_isDivided->setChecked(isDivided);
    const bool isOne = settings.mode == Disc::MODE_NONE;
    m_mode->setEnabled(isDivided);
    for (QWidget * field : {static_cast<QWidget *>(m_minStep), static_cast<QWidget *>(m_maxStep),
                            static_cast<QWidget *>(m_growth), static_cast<QWidget *>(m_stretch)})
        field->setEnabled(isDivided && !isOne);
    m_mode->setCurrentIndex(m_mode->findData(settings.mode));
    const auto show = [this](QtExt::ValueEdit & edit, double metres) {
        KOR::Parameter value("Width", metres, KOR::Unit("m"));
        value.set_value(value.get_value(m_scene.unit), m_scene.unit);
        edit.setParameter(value);
    };
    if (!isTyping) {
        show(*m_minStep, settings.minStep);
        show(*m_maxStep, settings.maxStep);
    }
    m_growth->setCurrentIndex(settings.isGeometric ? 0 : 1);
    m_stretch->setValue(settings.stretch);
    m_preview->update();
}

void HygDiscretizationDialog::takeSettings() {
    if (m_isShowing)
        return;
    Disc::LayerSettings settings;
    settings.mode = m_mode->currentData().toUInt();
    settings.minStep = m_minStep->parameter().value();
    settings.maxStep = m_maxStep->parameter().value();
    settings.stretch = m_stretch->value();
    settings.isGeometric = m_growth->currentIndex() == 0;
    for (const std::size_t n : chosenLayers())
        shown().layers[n].settings = m_isDivided->isChecked() ? std::optional(settings) : std::nullopt;
    update(shown());
    showSettings(true);
    updateAll();
}

void HygDiscretizationDialog::update(Direction & direction) {
    direction.divided = direction.cells;
    direction.problem.clear();
    for (std::size_t n = 0; n < direction.layers.size(); ++n) {
        if (!direction.layers[n].settings)
            continue;
        try {
            direction.divided[n] = HygConstructionEditor::cellsOf(direction.widths[n], *direction.layers[n].settings);
        } catch (const KOR::Exception & ex) {
            direction.problem =
                direction.names[static_cast<int>(n)] + QStringLiteral(": ") + QString::fromUtf8(ex.what());
        }
    }
}

void HygDiscretizationDialog::updateAll() {
    const Direction & direction = shown();
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const auto n = static_cast<std::size_t>(row);
        const std::size_t before = direction.cells[n].size();
        const std::size_t after = direction.divided[n].size();
        m_table->item(row, 2)->setText(before == after ? QString::number(after)
                                                       : QStringLiteral("%1 → %2").arg(before).arg(after));
    }
    const std::size_t now =
        m_scene.cells.nx() * m_scene.cells.ny() * std::max<std::size_t>(m_scene.project->m_disc.nz(), 1);
    const std::size_t then = cellCount();
    QString problem;
    bool isAnyChanged = false;
    for (const Direction & each : m_directions) {
        problem += each.problem;
        isAnyChanged = isAnyChanged || isChanged(each.dir);
    }
    m_apply->setEnabled(problem.isEmpty() && isAnyChanged && m_minStep->isValid() && m_maxStep->isValid());
    m_count->setText(tr("%1 cells, %2 before").arg(then).arg(now));
    if (problem.isEmpty() && then > MANY_CELLS)
        problem =
            tr("With so many cells a calculation takes very long; larger cells inside the layers are usually enough.");
    m_problem->setText(problem);
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, QtExt::Palette::color(QtExt::Palette::WARNING_TEXT));
    m_problem->setPalette(colours);
    m_preview->update();
}
