#include "construction/HygGridRuler.h"

#include "construction/HygConstructionScene.h"

#include <QtExt/Palette.h>

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>
#include <numeric>

namespace {
constexpr double MIN_TICK = 4; ///< pixels between marks of cells
} // namespace

HygGridRuler::HygGridRuler(const HygConstructionScene & scene, Qt::Orientation orientation, QWidget * parent)
    : QWidget(parent), m_scene(scene), m_isHorizontal(orientation == Qt::Horizontal) {
    setMouseTracking(true);
    setCursor(Qt::PointingHandCursor);
}

const HygGridAxis & HygGridRuler::axis() const {
    return m_isHorizontal ? m_scene.x : m_scene.y;
}

const std::vector<std::uint32_t> & HygGridRuler::borders() const {
    return m_isHorizontal ? m_scene.cells.columnBorders() : m_scene.cells.rowBorders();
}

QRect HygGridRuler::place(std::size_t first, std::size_t last) const {
    const auto [from, to] = axis().span(first, last);
    const int start = static_cast<int>(from) + m_shift;
    const int length = static_cast<int>(to - from);
    return m_isHorizontal ? QRect(start, 0, length, height()) : QRect(0, start, width(), length);
}

HygGridRuler::Run HygGridRuler::runAt(const QPoint & position) const {
    if (m_scene.project == nullptr)
        return {};
    const std::ptrdiff_t cell = axis().cellAt((m_isHorizontal ? position.x() : position.y()) - m_shift);
    if (cell < 0 || cell >= static_cast<std::ptrdiff_t>(axis().count()))
        return {};
    const int across = m_isHorizontal ? position.y() : position.x();
    if (across >= BAND)
        return {static_cast<int>(cell), static_cast<int>(cell)};
    const auto & list = borders();
    const auto next = std::upper_bound(list.begin(), list.end(), static_cast<std::uint32_t>(cell));
    return {static_cast<int>(*(next - 1)), static_cast<int>(*next) - 1};
}

void HygGridRuler::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    if (m_scene.project == nullptr || m_scene.isBlank())
        return;
    const QRectF whole = rect();
    // What is selected shows in the ruler too.
    QColor tint = m_scene.selectionColour;
    tint.setAlpha(56);
    for (const HYGRION::Range & block : m_scene.selection.blocks()) {
        const QRect area = m_isHorizontal ? place(block.left, block.right) : place(block.bottom, block.top);
        painter.fillRect(QRectF(area).intersected(whole), tint);
    }
    drawWidths(painter, borders(), true);
    std::vector<std::uint32_t> all(axis().count() + 1);
    std::iota(all.begin(), all.end(), 0U);
    drawWidths(painter, all, false);
}

void HygGridRuler::drawWidths(QPainter & painter, const std::vector<std::uint32_t> & list, bool isOuter) const {
    const QFontMetrics metrics(font());
    const QColor ink = palette().color(QPalette::WindowText);
    QColor faint = ink;
    faint.setAlphaF(isOuter ? 0.55 : 0.3);
    const double end = m_isHorizontal ? width() : height();
    const double bandStart = isOuter ? 0 : BAND;
    double lastTick = -2 * MIN_TICK;
    const auto tick = [&](double pixel) {
        if (pixel < -1 || pixel > end + 1 || std::abs(pixel - lastTick) < MIN_TICK)
            return;
        lastTick = pixel;
        painter.setPen(faint);
        const double at = std::floor(pixel) + 0.5;
        const double from = isOuter ? bandStart + 3 : bandStart + BAND / 2.0;
        painter.drawLine(m_isHorizontal ? QLineF(at, from, at, bandStart + BAND)
                                        : QLineF(from, at, bandStart + BAND, at));
    };
    // Only the runs in view.
    const auto [firstCell, lastCell] = axis().cellsBetween(-m_shift, end - m_shift);
    if (firstCell > lastCell)
        return;
    auto run = std::upper_bound(list.begin(), list.end(), static_cast<std::uint32_t>(firstCell)) - 1;
    for (; run + 1 < list.end() && *run <= lastCell; ++run) {
        const auto [low, high] = axis().span(*run, *(run + 1) - 1);
        const double from = low + m_shift;
        const double to = high + m_shift;
        tick(m_isHorizontal ? from : to);
        tick(m_isHorizontal ? to : from);
        const double metres = axis().width(*run, *(run + 1) - 1);
        QString text = m_scene.lengthText(metres);
        if (!isOuter || metrics.horizontalAdvance(text) + 4 > to - from)
            text = m_scene.lengthNumber(metres);
        if (to - from < metrics.height() || metrics.horizontalAdvance(text) + 4 > to - from)
            continue;
        // The text stays in view as long as there is room.
        const double seenFrom = std::max(from, 0.0);
        const double seenTo = std::min(to, end);
        if (metrics.horizontalAdvance(text) + 4 > seenTo - seenFrom)
            continue;
        painter.setPen(isOuter ? ink : QtExt::Palette::color(QtExt::Palette::MUTED_TEXT));
        painter.save();
        QRectF place(seenFrom, bandStart, seenTo - seenFrom, BAND);
        if (!m_isHorizontal) {
            painter.rotate(-90);
            place = QRectF(-seenTo, bandStart, seenTo - seenFrom, BAND);
        }
        painter.drawText(place, Qt::AlignCenter, text);
        painter.restore();
    }
}

void HygGridRuler::mousePressEvent(QMouseEvent * event) {
    const Run run = runAt(event->pos());
    if (event->button() != Qt::LeftButton || run.first < 0)
        return;
    m_pressed = run;
    emit selected(run.first, run.last, event->modifiers());
}

void HygGridRuler::mouseMoveEvent(QMouseEvent * event) {
    const Run run = runAt(event->pos());
    if ((event->buttons() & Qt::LeftButton) == 0 || m_pressed.first < 0 || run.first < 0)
        return;
    emit selected(std::min(run.first, m_pressed.first), std::max(run.last, m_pressed.last), Qt::NoModifier);
}

void HygGridRuler::mouseDoubleClickEvent(QMouseEvent * event) {
    if (const Run run = runAt(event->pos()); run.first >= 0)
        emit widthRequested(run.first, run.last);
}

bool HygGridRuler::event(QEvent * event) {
    if (event->type() == QEvent::ToolTip) {
        const auto * help = static_cast<QHelpEvent *>(event);
        const Run run = runAt(help->pos());
        if (run.first < 0) {
            QToolTip::hideText();
            return true;
        }
        const QString width =
            m_scene.lengthText(axis().width(static_cast<std::size_t>(run.first), static_cast<std::size_t>(run.last)));
        const QString cells = tr("%n cells", nullptr, run.last - run.first + 1);
        QToolTip::showText(help->globalPos(),
                           tr("%1 in %2. Click to select, double-click for another width.").arg(width, cells), this);
        return true;
    }
    return QWidget::event(event);
}
