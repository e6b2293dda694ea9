#include "construction/HygGridPainter.h"

#include "construction/HygHatching.h"

#include <QtExt/Palette.h>

#include <QPainter>

#include <cmath>
#include <cstring>
#include <map>
#include <optional>

namespace {

using HYGRION::Assignment;
using HYGRION::Range;

constexpr double MIN_CELL = 4;       ///< pixels between grid lines that are drawn
constexpr double INTERFACE_LINE = 4; ///< pixels
constexpr double CONTACT_LINE = 3;
constexpr int MIN_NAME = 13;   ///< pixels across for a name
constexpr int MAX_NAMES = 400; ///< names in view; more cannot be read anyway
constexpr int MAX_AREAS = 400;
constexpr QRgb OUTLINE_WEIGHT = 96; ///< of 256, by which an edge of a material is darker than its cells

/// A run of pixels with one material.
struct Run {
    int first;
    int last;
    std::size_t tile;
};

QRgb darker(QRgb colour) {
    const auto channel = [](int value) { return value * static_cast<int>(256 - OUTLINE_WEIGHT) / 256; };
    return qRgb(channel(qRed(colour)), channel(qGreen(colour)), channel(qBlue(colour)));
}

int wrapped(int value, int size) {
    const int rest = value % size;
    return rest < 0 ? rest + size : rest;
}

} // namespace

void HygGridPainter::paint(QPainter & painter, const HygConstructionScene & scene, const QSize & size, double ratio,
                           const QPalette & palette, bool hasFocus) {
    m_viewport = QRectF(QPointF(), size);
    const Key key{scene.version,
                  size,
                  ratio,
                  scene.x.scale(),
                  scene.y.scale(),
                  scene.x.origin(),
                  scene.y.origin(),
                  palette.color(QPalette::Window).rgb()};
    if (key != m_key || m_image.isNull()) {
        const bool isSameLook = key.version == m_key.version && key.ratio == m_key.ratio && key.ground == m_key.ground;
        if (!isSameLook || m_tiles.empty())
            prepareTiles(scene, ratio, palette);
        render(scene, size, ratio, palette);
        m_key = key;
    }
    painter.drawImage(QPointF(0, 0), m_image);
    if (scene.hasGridLines)
        drawGridLines(painter, scene);
    drawAreas(painter, scene);
    if (scene.overlays[HygConstructionScene::MaterialNames])
        drawNames(painter, scene);
    drawSides(painter, scene);
    drawPoints(painter, scene);
    drawMarks(painter, scene);
    drawSelection(painter, scene, hasFocus);
}

void HygGridPainter::prepareTiles(const HygConstructionScene & scene, double ratio, const QPalette & palette) {
    m_tiles.clear();
    for (std::size_t n = 0; n < scene.project->m_materials.size(); ++n) {
        const HYGRION::MaterialReference & material = scene.project->m_materials[n];
        const QColor colour(material.m_color.rgb());
        m_tiles.push_back(scene.problemOf(static_cast<std::int32_t>(n)).isEmpty()
                              ? HygHatching::tile(colour, material.m_hatchCode, ratio)
                              : HygHatching::unusableTile(colour, ratio));
    }
    m_tiles.push_back(HygHatching::emptyTile(QtExt::Palette::color(QtExt::Palette::ERROR_BASE),
                                             QtExt::Palette::color(QtExt::Palette::ERROR_TEXT), ratio));
    m_tiles.push_back(HygHatching::emptyTile(palette.color(QPalette::Base),
                                             QtExt::Palette::color(QtExt::Palette::MUTED_TEXT), ratio));
}

void HygGridPainter::render(const HygConstructionScene & scene, const QSize & size, double ratio,
                            const QPalette & palette) {
    const QSize pixels = (QSizeF(size) * ratio).toSize();
    if (m_image.size() != pixels)
        m_image = QImage(pixels, QImage::Format_RGB32);
    m_image.setDevicePixelRatio(ratio);
    const QRgb ground = palette.color(QPalette::Window).rgb();
    const int width = pixels.width();
    const std::vector<std::int32_t> columns = scene.x.cellsOfPixels(width, ratio);
    const std::vector<std::int32_t> rows = scene.y.cellsOfPixels(pixels.height(), ratio);
    const int tileSide = m_tiles.back().width();
    // The hatching moves with the construction.
    const int shiftX = wrapped(-static_cast<int>(std::floor(scene.x.origin() * ratio)), tileSide);
    const int shiftY = wrapped(-static_cast<int>(std::floor(scene.y.origin() * ratio)), tileSide);
    const std::size_t empty = m_tiles.size() - 1;
    const auto tileOf = [&](std::int32_t material) {
        return material >= 0                       ? static_cast<std::size_t>(material)
               : material == HygCellPlane::UNKNOWN ? empty - 1
                                                   : empty;
    };

    std::vector<Run> runs;
    std::vector<std::int32_t> materials(static_cast<std::size_t>(width));
    std::vector<std::int32_t> above(static_cast<std::size_t>(width), HygCellPlane::NO_MATERIAL);
    std::int32_t shown = -1;
    for (int py = 0; py < pixels.height(); ++py) {
        auto * line = reinterpret_cast<QRgb *>(m_image.scanLine(py));
        const std::int32_t j = rows[static_cast<std::size_t>(py)];
        if (j < 0) {
            std::fill(line, line + width, ground);
            continue;
        }
        const bool isFirst = j != shown;
        if (isFirst) {
            shown = j;
            std::swap(above, materials);
            runs.clear();
            const std::int32_t * cells = scene.cells.row(static_cast<std::size_t>(j));
            for (int px = 0; px < width; ++px) {
                const std::int32_t i = columns[static_cast<std::size_t>(px)];
                if (i < 0)
                    continue;
                const std::int32_t material = cells[i];
                materials[static_cast<std::size_t>(px)] = material;
                if (!runs.empty() && runs.back().last == px - 1 && runs.back().tile == tileOf(material))
                    runs.back().last = px;
                else
                    runs.push_back({px, px, tileOf(material)});
            }
            if (!runs.empty()) {
                std::fill(line, line + runs.front().first, ground);
                std::fill(line + runs.back().last + 1, line + width, ground);
            }
        }
        if (runs.empty()) {
            std::fill(line, line + width, ground);
            continue;
        }
        std::fill(line, line + runs.front().first, ground);
        std::fill(line + runs.back().last + 1, line + width, ground);
        const int tileRow = (py + shiftY) % tileSide;
        for (const Run & run : runs) {
            const auto * tile = reinterpret_cast<const QRgb *>(m_tiles[run.tile].constScanLine(tileRow));
            for (int px = run.first; px <= run.last;) {
                const int phase = (px + shiftX) % tileSide;
                const int count = std::min(tileSide - phase, run.last + 1 - px);
                std::memcpy(line + px, tile + phase, static_cast<std::size_t>(count) * sizeof(QRgb));
                px += count;
            }
            if (run.last - run.first >= 3)
                line[run.first] = darker(line[run.first]);
        }
        if (isFirst && py > 0)
            for (int px = runs.front().first; px <= runs.back().last; ++px)
                if (materials[static_cast<std::size_t>(px)] != above[static_cast<std::size_t>(px)])
                    line[px] = darker(line[px]);
    }
}

void HygGridPainter::drawGridLines(QPainter & painter, const HygConstructionScene & scene) const {
    const QRectF area = QRectF(QPointF(scene.x.pixel(0), scene.y.toPixel(scene.y.length())),
                               QPointF(scene.x.toPixel(scene.x.length()), scene.y.pixel(0)))
                            .intersected(m_viewport);
    if (area.isEmpty())
        return;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(QColor(0, 0, 0, 46), 1));
    QVector<QLineF> lines;
    const auto collect = [&lines](const HygGridAxis & axis, double from, double to, const auto & lineAt) {
        const auto [first, last] = axis.cellsBetween(from, to);
        if (first > last)
            return;
        double before = -2 * MIN_CELL;
        bool isFirst = true;
        for (std::size_t i = first; i <= last + 1; ++i) {
            const double pixel = axis.pixel(i);
            // A line that cannot be told from the one before only darkens the drawing.
            if (!isFirst && std::abs(pixel - before) < MIN_CELL)
                continue;
            isFirst = false;
            before = pixel;
            lines << lineAt(std::floor(pixel) + 0.5);
        }
    };
    collect(scene.x, area.left(), area.right(),
            [&](double pixel) { return QLineF(pixel, area.top(), pixel, area.bottom()); });
    collect(scene.y, area.top(), area.bottom(),
            [&](double pixel) { return QLineF(area.left(), pixel, area.right(), pixel); });
    painter.drawLines(lines);
}

void HygGridPainter::drawNames(QPainter & painter, const HygConstructionScene & scene) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const QFontMetricsF metrics(painter.font(), painter.device());
    int drawn = 0;
    for (const Assignment & assignment : scene.project->m_assignments.m_list) {
        Range range;
        if (assignment.m_type != Assignment::type_t::Material || !scene.showsIn(assignment, range))
            continue;
        const QRectF area = scene.rectangle(range).intersected(m_viewport);
        if (area.width() < MIN_NAME || area.height() < MIN_NAME || std::max(area.width(), area.height()) < 3 * MIN_NAME)
            continue;
        // Where a later material covers the middle the name would stand on the wrong one.
        const std::ptrdiff_t i = scene.x.cellAt(area.center().x());
        const std::ptrdiff_t j = scene.y.cellAt(area.center().y());
        if (!range.contains(static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(j), scene.plane))
            continue;
        const std::int32_t material = scene.cells.material(static_cast<std::size_t>(i), static_cast<std::size_t>(j));
        const bool isKnown = material >= 0;
        if (isKnown && scene.project->m_materials[static_cast<std::size_t>(material)].m_name != assignment.m_reference)
            continue;
        const bool isUsable = scene.problemOf(material).isEmpty();
        const QString name =
            (isUsable ? QString() : QStringLiteral("⚠ ")) + QString::fromStdString(assignment.m_reference);
        const double wanted = metrics.horizontalAdvance(name) + 12;
        const bool isTurned = wanted > area.width() && area.height() > area.width();
        const double room = (isTurned ? area.height() : area.width()) - 4;
        const QString text = metrics.elidedText(name, Qt::ElideRight, room - 8);
        const QRectF plate(-std::min(wanted, room) / 2, -metrics.height() / 2 - 1, std::min(wanted, room),
                           metrics.height() + 2);
        if (plate.height() > (isTurned ? area.width() : area.height()))
            continue;
        painter.save();
        painter.translate(area.center());
        if (isTurned)
            painter.rotate(-90);
        QColor ground = isKnown && isUsable
                            ? QColor(scene.project->m_materials[static_cast<std::size_t>(material)].m_color.rgb())
                            : QtExt::Palette::color(QtExt::Palette::ERROR_BASE);
        const QColor ink =
            isKnown && isUsable ? HygHatching::contrast(ground) : QtExt::Palette::color(QtExt::Palette::ERROR_TEXT);
        ground.setAlphaF(0.86);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(plate, 3, 3);
        painter.setPen(ink);
        painter.drawText(plate, Qt::AlignCenter, text);
        painter.restore();
        if (++drawn == MAX_NAMES)
            return;
    }
}

void HygGridPainter::drawSides(QPainter & painter, const HygConstructionScene & scene) const {
    painter.setRenderHint(QPainter::Antialiasing, false);
    const QRectF reach = m_viewport.adjusted(-8, -8, 8, 8);
    /// A definition is drawn in its colour and named at its longest line.
    struct Drawn {
        QColor colour;
        QRectF longest;
    };
    std::map<std::pair<Assignment::type_t, std::string>, Drawn> definitions;
    for (const Assignment & assignment : scene.project->m_assignments.m_list) {
        if (!assignment.isOnSide() || !scene.overlays[HygConstructionScene::overlayOf(assignment.m_type)])
            continue;
        Range range;
        if (!scene.showsIn(assignment, range))
            continue;
        const QLineF line = scene.sideLine(range, assignment.m_location);
        const QRectF area = QRectF(line.p1(), line.p2()).normalized();
        if (line.isNull() || !area.adjusted(-1, -1, 1, 1).intersects(reach))
            continue;
        const auto place = definitions.try_emplace({assignment.m_type, assignment.m_reference});
        Drawn & drawn = place.first->second;
        if (place.second)
            drawn.colour = scene.colourOf(assignment.m_type, assignment.m_reference);
        const bool isContact = assignment.m_type != Assignment::type_t::Interface;
        const double thick = isContact ? CONTACT_LINE : INTERFACE_LINE;
        // An interface lies outside of the cells that bear it, a contact condition on their border.
        const bool isUpright = area.height() > area.width();
        const bool isAtStart = assignment.m_location == Assignment::location_t::Left ||
                               assignment.m_location == Assignment::location_t::Top;
        const double before = isContact ? thick / 2 : isAtStart ? thick : 0;
        QRectF bar = isUpright ? QRectF(area.left() - before, area.top(), thick, area.height())
                               : QRectF(area.left(), area.top() - before, area.width(), thick);
        bar = bar.intersected(reach);
        if (isContact) {
            // Dashes, so that it is told from an interface without colours too.
            constexpr double DASH = 9;
            const double length = isUpright ? bar.height() : bar.width();
            for (int dash = 0; 1.5 * DASH * dash < length; ++dash) {
                const double at = 1.5 * DASH * dash;
                const double part = std::min(DASH, length - at);
                painter.fillRect(isUpright ? QRectF(bar.left(), bar.top() + at, thick, part)
                                           : QRectF(bar.left() + at, bar.top(), part, thick),
                                 drawn.colour);
            }
        } else {
            painter.fillRect(bar, drawn.colour);
        }
        const QRectF seen = bar.intersected(m_viewport);
        if (std::max(seen.width(), seen.height()) > std::max(drawn.longest.width(), drawn.longest.height()))
            drawn.longest = seen;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    const QFontMetricsF metrics(painter.font(), painter.device());
    std::vector<QRectF> taken; // by other names
    for (const auto & [key, drawn] : definitions) {
        const QString text = QString::fromStdString(key.second);
        const bool isUpright = drawn.longest.height() > drawn.longest.width();
        const double wide = metrics.horizontalAdvance(text) + 12;
        if (wide > std::max(drawn.longest.width(), drawn.longest.height()))
            continue;
        // Upright ones near the upper end, where they do not cover the names of layers; further along where another one is.
        const QSizeF size = isUpright ? QSizeF(metrics.height(), wide) : QSizeF(wide, metrics.height());
        const double length = std::max(drawn.longest.width(), drawn.longest.height());
        const double first = isUpright ? std::min(length / 2, wide / 2 + 16) : length / 2;
        std::optional<QPointF> middle;
        for (const double at : {first, length / 4, 3 * length / 4, length - wide / 2}) {
            QRectF place(QPointF(), size);
            place.moveCenter(isUpright ? QPointF(drawn.longest.center().x(), drawn.longest.top() + at)
                                       : QPointF(drawn.longest.left() + at, drawn.longest.center().y()));
            if (std::none_of(taken.begin(), taken.end(),
                             [&](const QRectF & other) { return other.intersects(place); })) {
                taken.push_back(place);
                middle = place.center();
                break;
            }
        }
        if (!middle)
            continue;
        painter.save();
        painter.translate(*middle);
        if (isUpright)
            painter.rotate(-90);
        const QRectF plate(-wide / 2, -metrics.height() / 2, wide, metrics.height());
        painter.setPen(Qt::NoPen);
        painter.setBrush(drawn.colour);
        painter.drawRoundedRect(plate, plate.height() / 2, plate.height() / 2);
        painter.setPen(HygHatching::contrast(drawn.colour));
        painter.drawText(plate, Qt::AlignCenter, text);
        painter.restore();
    }
}

void HygGridPainter::drawAreas(QPainter & painter, const HygConstructionScene & scene) const {
    /// What is assigned to one block: drawn once, with a plate that names one and counts the others.
    struct Area {
        std::string name;
        int count = 0;
    };
    std::map<std::tuple<Assignment::type_t, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t>, Area> areas;
    for (const Assignment & assignment : scene.project->m_assignments.m_list) {
        Range range;
        if (assignment.m_type == Assignment::type_t::Material || assignment.isOnSide() ||
            assignment.m_location == Assignment::location_t::Coordinate ||
            !scene.overlays[HygConstructionScene::overlayOf(assignment.m_type)] || !scene.showsIn(assignment, range) ||
            !scene.rectangle(range).intersects(m_viewport))
            continue;
        Area & area = areas[{assignment.m_type, range.left, range.bottom, range.right, range.top}];
        if (area.count++ == 0)
            area.name = assignment.m_reference;
        if (areas.size() > MAX_AREAS)
            break;
    }
    const QFontMetricsF metrics(painter.font(), painter.device());
    painter.setRenderHint(QPainter::Antialiasing);
    for (const auto & [key, area] : areas) {
        const auto [type, left, bottom, right, top] = key;
        const QRectF rect = scene.rectangle({left, bottom, scene.plane, right, top, scene.plane})
                                .intersected(m_viewport.adjusted(-4, -4, 4, 4));
        // Each kind keeps a distance of its own from the edge, so that all stay in sight.
        const int rank = type == Assignment::type_t::FieldCondition     ? 0
                         : type == Assignment::type_t::InitialCondition ? 1
                                                                        : 2;
        const double inset = std::min(2.0 + 3 * rank, std::min(rect.width(), rect.height()) / 3);
        const QRectF frame = rect.adjusted(inset, inset, -inset, -inset);
        const QColor colour = scene.colourOf(type, area.name);
        QColor tint = colour;
        tint.setAlpha(34);
        constexpr Qt::PenStyle STYLES[] = {Qt::SolidLine, Qt::DotLine, Qt::DashLine};
        painter.setPen(QPen(colour, 1.6, STYLES[rank]));
        painter.setBrush(rank == 0 ? QBrush(tint) : QBrush(Qt::NoBrush));
        painter.drawRect(frame);
        QString text = QString::fromStdString(area.name);
        if (area.count > 1)
            text += QStringLiteral("  +%1").arg(area.count - 1);
        const double high = metrics.height() + 2;
        const double wide = std::min(metrics.horizontalAdvance(text) + 12, frame.width() - 2);
        if (wide < 28 || frame.height() < (rank + 1) * (high + 2))
            continue;
        const QRectF plate(frame.left() + 1, frame.top() + 1 + rank * (high + 2), wide, high);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawRoundedRect(plate, 3, 3);
        painter.setPen(HygHatching::contrast(colour));
        painter.drawText(plate, Qt::AlignCenter, metrics.elidedText(text, Qt::ElideRight, wide - 8));
    }
}

void HygGridPainter::drawPoints(QPainter & painter, const HygConstructionScene & scene) const {
    constexpr double RADIUS = 5;
    constexpr double ARM = 9;
    const QFontMetricsF metrics(painter.font(), painter.device());
    painter.setRenderHint(QPainter::Antialiasing);
    /// What is assigned to one point: drawn once, with a plate that names one and counts the others.
    struct Point {
        const Assignment * first = nullptr;
        int count = 0;
    };
    std::map<std::pair<int, int>, Point> points; // by pixels
    for (const Assignment & assignment : scene.project->m_assignments.m_list) {
        Range cell;
        if (assignment.m_location != Assignment::location_t::Coordinate ||
            !scene.overlays[HygConstructionScene::overlayOf(assignment.m_type)] || !scene.showsIn(assignment, cell))
            continue;
        const QPoint at = scene.pointOf(assignment).toPoint();
        if (!m_viewport.adjusted(-ARM, -ARM, ARM, ARM).contains(at))
            continue;
        Point & point = points[{at.x(), at.y()}];
        if (point.count++ == 0)
            point.first = &assignment;
        if (points.size() > MAX_AREAS)
            break;
    }
    for (const auto & [place, point] : points) {
        const QPointF at(place.first, place.second);
        const QColor colour = scene.colourOf(point.first->m_type, point.first->m_reference);
        const QLineF cross[] = {
            {at - QPointF(ARM, 0),   at + QPointF(ARM, 0)  },
            {at - QPointF(0,   ARM), at + QPointF(0,   ARM)}
        };
        for (const auto & [ink, width] : {std::pair(QColor(255, 255, 255, 210), 4.0), std::pair(colour, 2.0)}) {
            painter.setPen(QPen(ink, width));
            painter.setBrush(Qt::NoBrush);
            painter.drawLines(cross, 2);
            painter.drawEllipse(at, RADIUS, RADIUS);
        }
        QString text = QString::fromStdString(point.first->m_reference);
        if (point.count > 1)
            text += QStringLiteral("  +%1").arg(point.count - 1);
        const double wide = metrics.horizontalAdvance(text) + 12;
        QRectF plate(at.x() + ARM + 2, at.y() - metrics.height() / 2 - 1, wide, metrics.height() + 2);
        if (plate.right() > m_viewport.right())
            plate.moveRight(at.x() - ARM - 2);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawRoundedRect(plate, 3, 3);
        painter.setPen(HygHatching::contrast(colour));
        painter.drawText(plate, Qt::AlignCenter, text);
    }
}

void HygGridPainter::drawSelection(QPainter & painter, const HygConstructionScene & scene, bool hasFocus) const {
    painter.setRenderHint(QPainter::Antialiasing, false);
    const QRectF reach = m_viewport.adjusted(-4, -4, 4, 4);
    const auto draw = [&](const Range & range, const QColor & colour) {
        const QRectF area = scene.rectangle(range).intersected(reach);
        if (area.isEmpty() && !scene.rectangle(range).adjusted(-1, -1, 1, 1).intersects(reach))
            return;
        QColor tint = colour;
        tint.setAlpha(64);
        painter.fillRect(area, tint);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(255, 255, 255, 200), 3));
        painter.drawRect(area);
        painter.setPen(QPen(colour, 1.6));
        painter.drawRect(area);
    };
    for (const Range & range : scene.highlighted)
        draw(range, scene.highlightColour);
    for (const Range & range : scene.selection.blocks())
        draw(range, scene.selectionColour);
    if (hasFocus && !scene.selection.empty()) {
        const HygGridSelection::Cell cursor = scene.selection.cursor();
        const QRectF cell = scene.rectangle({cursor.i, cursor.j, scene.plane, cursor.i, cursor.j, scene.plane});
        painter.setPen(QPen(scene.selectionColour.darker(160), 1, Qt::DotLine));
        painter.drawRect(cell.adjusted(2, 2, -2, -2).intersected(reach));
    }
}

void HygGridPainter::drawMarks(QPainter & painter, const HygConstructionScene & scene) const {
    painter.setRenderHint(QPainter::Antialiasing, false);
    const QRectF reach = m_viewport.adjusted(-6, -6, 6, 6);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QtExt::Palette::color(QtExt::Palette::WARNING_TEXT), 2, Qt::DotLine));
    for (const HygConstructionScene::Mark & mark : scene.marks) {
        if (mark.side == Assignment::location_t::Element) {
            painter.drawRect(scene.rectangle(mark.range).intersected(reach).adjusted(1, 1, -1, -1));
            continue;
        }
        const QLineF line = scene.sideLine(mark.range, mark.side);
        const QRectF area = QRectF(line.p1(), line.p2()).normalized().adjusted(-1, -1, 1, 1).intersected(reach);
        if (!area.isEmpty())
            painter.drawLine(line.dx() == 0 ? QLineF(line.x1(), area.top(), line.x1(), area.bottom())
                                            : QLineF(area.left(), line.y1(), area.right(), line.y1()));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    const QFont font = painter.font();
    QFont bold = font;
    bold.setBold(true);
    painter.setFont(bold);
    constexpr double RADIUS = HygConstructionScene::BADGE_RADIUS;
    for (const HygConstructionScene::Badge & badge : scene.badges(m_viewport)) {
        painter.setPen(QPen(Qt::white, 2));
        painter.setBrush(QtExt::Palette::color(QtExt::Palette::WARNING_TEXT));
        painter.drawEllipse(badge.middle, RADIUS, RADIUS);
        painter.setPen(HygHatching::contrast(QtExt::Palette::color(QtExt::Palette::WARNING_TEXT)));
        painter.drawText(QRectF(badge.middle - QPointF(RADIUS, RADIUS), QSizeF(2 * RADIUS, 2 * RADIUS)),
                         Qt::AlignCenter, QStringLiteral("!"));
    }
    painter.setFont(font);
}
