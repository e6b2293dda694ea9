#include "construction/HygConstructionScene.h"

#include <HYGRION/GridEdit.h>

#include <KOR/UnitList.h>

#include <QLineF>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace {

using HYGRION::Assignment;
using type_t = Assignment::type_t;
using location_t = Assignment::location_t;

// Told apart by eyes of every kind, on light and on dark ground.
constexpr QRgb DEFINITION_COLOURS[] = {0x1f78d1, 0xe8590c, 0x2b9348, 0xc2255c, 0x7048e8, 0x0c8599, 0xb08900, 0x8d5524};

constexpr const char * TYPE_NAMES[] = {QT_TRANSLATE_NOOP("HygConstructionScene", "Material"),
                                       QT_TRANSLATE_NOOP("HygConstructionScene", "Interface"),
                                       QT_TRANSLATE_NOOP("HygConstructionScene", "Initial condition"),
                                       QT_TRANSLATE_NOOP("HygConstructionScene", "Field condition"),
                                       QT_TRANSLATE_NOOP("HygConstructionScene", "Contact condition"),
                                       QT_TRANSLATE_NOOP("HygConstructionScene", "Output")};

constexpr const char * LOCATION_NAMES[] = {
    QT_TRANSLATE_NOOP("HygConstructionScene", "Cells"),      QT_TRANSLATE_NOOP("HygConstructionScene", "Left side"),
    QT_TRANSLATE_NOOP("HygConstructionScene", "Right side"), QT_TRANSLATE_NOOP("HygConstructionScene", "Bottom side"),
    QT_TRANSLATE_NOOP("HygConstructionScene", "Top side"),   QT_TRANSLATE_NOOP("HygConstructionScene", "Back side"),
    QT_TRANSLATE_NOOP("HygConstructionScene", "Front side"), QT_TRANSLATE_NOOP("HygConstructionScene", "Point")};

} // namespace

void HygConstructionScene::update() {
    ++version;
    if (project == nullptr)
        return;
    plane = std::min(plane, static_cast<std::uint32_t>(std::max<std::size_t>(project->m_disc.nz(), 1) - 1));
    cells.update(*project, plane);
    x.setWidths(project->m_disc.m_xSteps, isEquidistant);
    y.setWidths(project->m_disc.m_ySteps, isEquidistant);
    z.setWidths(project->m_disc.m_zSteps, isEquidistant);
    x.setLayers(cells.columnBorders());
    y.setLayers(cells.rowBorders());
    selection.fit(cells.nx(), cells.ny(), plane);
}

bool HygConstructionScene::isBlank() const {
    return project != nullptr && project->m_assignments.empty() && project->m_disc.nx() <= 1 &&
           project->m_disc.ny() <= 1 && project->m_disc.nz() <= 1;
}

bool HygConstructionScene::isRotational() const {
    return project != nullptr && !project->m_disc.m_thetaZ.empty() && project->m_disc.m_thetaZ.value() > 0;
}

QRectF HygConstructionScene::rectangle(const HYGRION::Range & range) const {
    const auto [left, right] = x.span(range.left, range.right);
    const auto [top, bottom] = y.span(range.bottom, range.top);
    return {QPointF(left, top), QPointF(right, bottom)};
}

QLineF HygConstructionScene::sideLine(const HYGRION::Range & range, location_t side) const {
    const QRectF area = rectangle(range);
    switch (side) {
    case location_t::Left:
        return {area.bottomLeft(), area.topLeft()};
    case location_t::Right:
        return {area.bottomRight(), area.topRight()};
    case location_t::Bottom:
        return {area.bottomLeft(), area.bottomRight()};
    case location_t::Top:
        return {area.topLeft(), area.topRight()};
    default:
        return {};
    }
}

QPointF HygConstructionScene::pointOf(const Assignment & assignment) const {
    return {x.pixelOfPosition(assignment.m_coordinates.x), y.pixelOfPosition(assignment.m_coordinates.y)};
}

bool HygConstructionScene::showsIn(const Assignment & assignment, HYGRION::Range & cellsOfIt) const {
    if (assignment.m_location == location_t::Coordinate) {
        const HYGRION::Point3D & point = assignment.m_coordinates;
        const auto cell = [](const HygGridAxis & axis, double metres) {
            return static_cast<std::uint32_t>(axis.cellAtPosition(metres));
        };
        const auto i = cell(x, point.x);
        const auto j = cell(y, point.y);
        const auto k = cell(z, point.z);
        cellsOfIt = {i, j, k, i, j, k};
        return k == plane;
    }
    cellsOfIt = HYGRION::edit::effectiveRange(assignment);
    const HYGRION::Range whole{
        0, 0, plane, static_cast<std::uint32_t>(cells.nx() - 1), static_cast<std::uint32_t>(cells.ny() - 1), plane};
    cellsOfIt = HYGRION::edit::intersection(cellsOfIt, whole);
    return cellsOfIt.isNormalised();
}

std::vector<HygConstructionScene::Badge> HygConstructionScene::badges(const QRectF & viewport) const {
    constexpr std::size_t MAX_BADGES = 40;
    constexpr double APART = 4 * BADGE_RADIUS;
    const QRectF room = viewport.adjusted(BADGE_RADIUS, BADGE_RADIUS, -BADGE_RADIUS, -BADGE_RADIUS);
    std::vector<Badge> placed;
    for (const Mark & mark : marks) {
        const QLineF line = sideLine(mark.range, mark.side);
        const QRectF area =
            mark.side == location_t::Element ? rectangle(mark.range) : QRectF(line.p1(), line.p2()).normalized();
        const QRectF seen = area.adjusted(-1, -1, 1, 1).intersected(viewport);
        if (seen.isEmpty())
            continue;
        // On the side of the air, where no name stands.
        constexpr double AWAY = BADGE_RADIUS + 4;
        const QPointF away = mark.side == location_t::Left     ? QPointF(-AWAY, 0)
                             : mark.side == location_t::Right  ? QPointF(AWAY, 0)
                             : mark.side == location_t::Top    ? QPointF(0, -AWAY)
                             : mark.side == location_t::Bottom ? QPointF(0, AWAY)
                                                               : QPointF();
        QPointF middle = seen.center() + away;
        middle = {std::clamp(middle.x(), room.left(), std::max(room.left(), room.right())),
                  std::clamp(middle.y(), room.top(), std::max(room.top(), room.bottom()))};
        if (std::any_of(placed.begin(), placed.end(),
                        [&](const Badge & other) { return QLineF(other.middle, middle).length() < APART; }))
            continue;
        placed.push_back({middle, &mark});
        if (placed.size() == MAX_BADGES)
            break;
    }
    return placed;
}

QColor HygConstructionScene::definitionColour(type_t type, std::size_t index) {
    // Kinds begin at different colours, so that the first of each do not look alike.
    return QColor(DEFINITION_COLOURS[(index + 2 * static_cast<std::size_t>(type)) % std::size(DEFINITION_COLOURS)]);
}

QColor HygConstructionScene::colourOf(type_t type, const std::string & name) const {
    Assignment assignment;
    assignment.m_type = type;
    const HYGRION::definition_t kind = HYGRION::referencedKind(assignment);
    QColor colour(0xd0, 0x30, 0x30); // of what is not defined
    HYGRION::forEachDefinitionList(*project, [&](HYGRION::definition_t listKind, const auto & list) {
        if (listKind != kind)
            return;
        const auto found =
            std::find_if(list.begin(), list.end(), [&](const auto & item) { return item.m_name == name; });
        if (found == list.end())
            return;
        if constexpr (requires { found->m_hatchCode; })
            colour = QColor(found->m_color.rgb());
        else
            colour = definitionColour(type, static_cast<std::size_t>(found - list.begin()));
    });
    return colour;
}

QString HygConstructionScene::problemOf(std::int32_t material) const {
    const auto index = static_cast<std::size_t>(material);
    return material >= 0 && index < materialProblems.size() ? materialProblems[index] : QString();
}

QString HygConstructionScene::problemOf(const Assignment & assignment) const {
    if (assignment.m_type != type_t::Material || materialProblems.empty())
        return {};
    const auto & materials = project->m_materials;
    const auto found = std::find_if(materials.begin(), materials.end(),
                                    [&](const auto & material) { return material.m_name == assignment.m_reference; });
    return problemOf(found == materials.end() ? -1 : static_cast<std::int32_t>(found - materials.begin()));
}

HygConstructionScene::overlay_t HygConstructionScene::overlayOf(type_t type) {
    constexpr overlay_t OVERLAYS[] = {MaterialNames,   Interfaces,        InitialConditions,
                                      FieldConditions, ContactConditions, Outputs};
    return OVERLAYS[static_cast<std::size_t>(type)];
}

QString HygConstructionScene::lengthNumber(double metres) const {
    double value = metres;
    KOR::UnitList::instance().convert(KOR::Unit("m"), unit, value);
    // A hundredth of a millimetre is finer than anything that is built.
    double finest = 1e-5;
    KOR::UnitList::instance().convert(KOR::Unit("m"), unit, finest);
    const int decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(finest) - 1e-9)), 0, 8);
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    QString text = locale.toString(value, 'f', decimals);
    if (decimals > 0) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (!text.isEmpty() && !text.back().isDigit())
            text.chop(1);
    }
    return text;
}

QString HygConstructionScene::lengthText(double metres) const {
    return lengthNumber(metres) + QChar(0x202f) + QString::fromStdString(unit.name());
}

QString HygConstructionScene::cardOf(std::uint32_t i, std::uint32_t j) const {
    if (project == nullptr || i >= cells.nx() || j >= cells.ny())
        return {};
    const auto row = [](const QString & name, const QString & value) {
        return QStringLiteral("<tr><td style='padding-right:10px'>%1</td><td>%2</td></tr>").arg(name, value);
    };
    const auto length = [this](double metres) { return lengthText(metres).toHtmlEscaped(); };
    QString rows;
    rows += row(tr("Size"), length(x.width(i, i)) + QStringLiteral(" × ") + length(y.width(j, j)));
    rows += row(tr("Position"), length(x.position(i)) + QStringLiteral(", ") + length(y.position(j)));
    bool hasMaterial = false;
    int more = 0;
    constexpr int MAX_ROWS = 20;
    int count = 0;
    for (const Assignment & assignment : project->m_assignments.m_list) {
        HYGRION::Range range;
        if (!showsIn(assignment, range) || !range.contains(i, j, plane))
            continue;
        hasMaterial = hasMaterial || assignment.m_type == type_t::Material;
        if (++count > MAX_ROWS) {
            ++more;
            continue;
        }
        QString what = QString::fromStdString(assignment.m_reference).toHtmlEscaped();
        if (assignment.m_location != location_t::Element)
            what += QStringLiteral(" (%1)").arg(locationName(assignment.m_location));
        const QString colour = colourOf(assignment.m_type, assignment.m_reference).name();
        rows +=
            row(typeName(assignment.m_type), QStringLiteral("<span style='color:%1'>■</span> %2").arg(colour, what));
        if (const QString problem = problemOf(assignment); !problem.isEmpty())
            rows += row(QStringLiteral("⚠"), problem.toHtmlEscaped());
    }
    if (!hasMaterial)
        rows += row(typeName(type_t::Material), tr("none"));
    if (more > 0)
        rows += row(QString(), tr("and %n more", nullptr, more));
    const QString title = cells.ny() > 1 ? tr("Column %1, row %2").arg(i + 1).arg(j + 1) : tr("Column %1").arg(i + 1);
    return QStringLiteral("<b>%1</b><table>%2</table>").arg(title, rows);
}

QString HygConstructionScene::typeName(type_t type) {
    return tr(TYPE_NAMES[static_cast<std::size_t>(type)]);
}

QString HygConstructionScene::locationName(location_t location) {
    return tr(LOCATION_NAMES[static_cast<std::size_t>(location)]);
}
