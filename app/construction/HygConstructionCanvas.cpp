#include "construction/HygConstructionCanvas.h"

#include "construction/HygGridRuler.h"
#include "materials/HygMaterialDBTableModel.h"

#include <HYGRION/GridEdit.h>

#include <QDropEvent>
#include <QHelpEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace {

using HYGRION::Range;
using location_t = HYGRION::Assignment::location_t;
using type_t = HYGRION::Assignment::type_t;

constexpr double MARGIN = 24;           ///< pixels around the construction
constexpr double LARGEST_CELL = 400;    ///< pixels of the narrowest cell at the largest scale
constexpr double LARGEST_DRAWING = 5e7; ///< pixels; scroll bars count in int
constexpr double ZOOM_STEP = 1.25;
constexpr int SCROLL_MS = 40;
constexpr double STACK_HEIGHT = 420; ///< pixels; a stack of layers need not be higher

struct Dragged {
    type_t type;
    QString name; ///< the path of a file
    bool isFile = false;
};
std::optional<Dragged> dragged(const QMimeData & data) {
    const QString path = QString::fromUtf8(data.data(QLatin1String(HygMaterialDBTableModel::MIME_TYPE)));
    if (!path.isEmpty())
        return Dragged{type_t::Material, path, true};
    const QStringList lines =
        QString::fromUtf8(data.data(QLatin1String(HygConstructionCanvas::MIME_TYPE))).split(QLatin1Char('\n'));
    if (lines.size() != 2 || lines[1].isEmpty())
        return std::nullopt;
    bool isNumber = false;
    const int type = lines[0].toInt(&isNumber);
    if (!isNumber || type < 0 || type > static_cast<int>(type_t::Output))
        return std::nullopt;
    return Dragged{static_cast<type_t>(type), lines[1]};
}

} // namespace

HygConstructionCanvas::HygConstructionCanvas(QWidget * parent)
    : QAbstractScrollArea(parent), m_top(new HygGridRuler(m_scene, Qt::Horizontal, this)),
      m_left(new HygGridRuler(m_scene, Qt::Vertical, this)) {
    setObjectName(QStringLiteral("constructionCanvas"));
    m_top->setObjectName(QStringLiteral("columnRuler"));
    m_left->setObjectName(QStringLiteral("rowRuler"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);

    const auto select = [this](bool isColumns, int from, int to, Qt::KeyboardModifiers modifiers) {
        const auto rows = static_cast<std::uint32_t>(m_scene.cells.ny()) - 1;
        const auto columns = static_cast<std::uint32_t>(m_scene.cells.nx()) - 1;
        auto first = static_cast<std::uint32_t>(from);
        auto last = static_cast<std::uint32_t>(to);
        const HygGridSelection::Cell anchor = m_scene.selection.anchor();
        if ((modifiers & Qt::ShiftModifier) != 0 && !m_scene.selection.empty()) {
            first = std::min(first, isColumns ? anchor.i : anchor.j);
            last = std::max(last, isColumns ? anchor.i : anchor.j);
        }
        const bool isAdded = (modifiers & Qt::ControlModifier) != 0;
        if (isColumns)
            m_scene.selection.setCorners({first, 0}, {last, rows}, m_scene.plane, isAdded);
        else
            m_scene.selection.setCorners({0, first}, {columns, last}, m_scene.plane, isAdded);
        setFocus(Qt::MouseFocusReason);
        announceSelection();
    };
    connect(m_top, &HygGridRuler::selected, this,
            [select](int from, int to, Qt::KeyboardModifiers modifiers) { select(true, from, to, modifiers); });
    connect(m_left, &HygGridRuler::selected, this,
            [select](int from, int to, Qt::KeyboardModifiers modifiers) { select(false, from, to, modifiers); });
    connect(m_top, &HygGridRuler::widthRequested, this,
            [this](int first, int last) { emit widthRequested(Qt::Horizontal, first, last); });
    connect(m_left, &HygGridRuler::widthRequested, this,
            [this](int first, int last) { emit widthRequested(Qt::Vertical, first, last); });
}

void HygConstructionCanvas::sceneChanged(bool isNewProject) {
    if (isNewProject) {
        m_scene.selection.clear();
        m_scene.highlighted.clear();
        m_scene.marks.clear();
        m_scene.plane = 0;
        m_isFitted = true;
    }
    m_scene.update();
    const bool isStack = m_scene.isStack();
    m_left->setVisible(!isStack);
    setViewportMargins(isStack ? 0 : 2 * HygGridRuler::BAND, 2 * HygGridRuler::BAND, 0, 0);
    placeRulers();
    layOut();
    announceSelection();
}

double HygConstructionCanvas::fittingScale(const QRectF & room, double lengthX, double lengthY) const {
    const double scale = std::max(room.width() - 2 * MARGIN, 20.0) / lengthX;
    return m_scene.isStack() ? scale : std::min(scale, std::max(room.height() - 2 * MARGIN, 20.0) / lengthY);
}

void HygConstructionCanvas::setScale(double scale) {
    const double fitting = fittingScale(viewport()->rect(), m_scene.x.length(), m_scene.y.length());
    const double smallest =
        m_scene.isStack() ? m_scene.x.smallest() : std::min(m_scene.x.smallest(), m_scene.y.smallest());
    const double largest =
        std::min(LARGEST_CELL / smallest, LARGEST_DRAWING / std::max(m_scene.x.length(), m_scene.y.length()));
    m_scale = std::clamp(scale, fitting / 4, std::max(largest, fitting));
}

void HygConstructionCanvas::layOut() {
    if (m_isFitted)
        m_scale = fittingScale(viewport()->rect(), m_scene.x.length(), m_scene.y.length());
    const auto setRange = [](QScrollBar & bar, double content, int page) {
        bar.setPageStep(page);
        bar.setSingleStep(std::max(page / 20, 1));
        bar.setRange(0, std::max(static_cast<int>(std::ceil(content)) - page, 0));
    };
    const QSize size = viewport()->size();
    setRange(*horizontalScrollBar(), m_scene.x.length() * m_scale + 2 * MARGIN - (m_isFitted ? 1 : 0), size.width());
    setRange(*verticalScrollBar(),
             m_scene.isStack() ? 0 : m_scene.y.length() * m_scale + 2 * MARGIN - (m_isFitted ? 1 : 0), size.height());
    placeOrigins();
}

void HygConstructionCanvas::placeOrigins() {
    const QSize size = viewport()->size();
    // What is smaller than the window stands in its middle.
    const double freeX = std::max(size.width() - m_scene.x.length() * m_scale, 2 * MARGIN) / 2;
    m_scene.x.setView(m_scale, freeX - horizontalScrollBar()->value());
    if (m_scene.isStack()) {
        const double height = std::max(std::min(size.height() - 2 * MARGIN, STACK_HEIGHT), 20.0);
        m_scene.y.setView(height / m_scene.y.length(), (size.height() + height) / 2);
    } else {
        const double length = m_scene.y.length() * m_scale;
        const double freeY = std::max(size.height() - length, 2 * MARGIN) / 2;
        m_scene.y.setView(m_scale, freeY + length - verticalScrollBar()->value());
    }
    updateAll();
}

void HygConstructionCanvas::updateAll() {
    viewport()->update();
    m_top->update();
    m_left->update();
}

void HygConstructionCanvas::placeRulers() {
    const QRect inner = viewport()->geometry();
    m_top->setGeometry(inner.left(), inner.top() - 2 * HygGridRuler::BAND, inner.width(), 2 * HygGridRuler::BAND);
    m_left->setGeometry(inner.left() - 2 * HygGridRuler::BAND, inner.top(), 2 * HygGridRuler::BAND, inner.height());
}

void HygConstructionCanvas::resizeEvent(QResizeEvent * event) {
    QAbstractScrollArea::resizeEvent(event);
    placeRulers();
    layOut();
}

void HygConstructionCanvas::scrollContentsBy(int, int) {
    placeOrigins();
}

void HygConstructionCanvas::fitAll() {
    m_isFitted = true;
    layOut();
}

void HygConstructionCanvas::zoomBy(double factor, const QPointF & around) {
    if (m_scene.project == nullptr)
        return;
    const double drawnX = m_scene.x.toDrawn(around.x());
    const double drawnY = m_scene.y.toDrawn(around.y());
    m_isFitted = false;
    setScale(m_scale * factor);
    layOut();
    horizontalScrollBar()->setValue(qRound(drawnX * m_scale + MARGIN - around.x()));
    if (!m_scene.isStack())
        verticalScrollBar()->setValue(qRound((m_scene.y.length() - drawnY) * m_scale + MARGIN - around.y()));
}

void HygConstructionCanvas::zoomIn() {
    zoomBy(ZOOM_STEP, viewport()->rect().center());
}

void HygConstructionCanvas::zoomOut() {
    zoomBy(1 / ZOOM_STEP, viewport()->rect().center());
}

void HygConstructionCanvas::zoomToSelection() {
    if (m_scene.selection.empty())
        return;
    const Range range = m_scene.selection.bounds();
    m_isFitted = false;
    setScale(fittingScale(viewport()->rect(), m_scene.x.edge(range.right + 1) - m_scene.x.edge(range.left),
                          m_scene.y.edge(range.top + 1) - m_scene.y.edge(range.bottom)));
    layOut();
    const QPointF shift = m_scene.rectangle(range).center() - QRectF(viewport()->rect()).center();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(shift.x()));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(shift.y()));
}

void HygConstructionCanvas::ensureVisible(const Range & range) {
    const QRectF area = m_scene.rectangle(range);
    const auto move = [](QScrollBar & bar, double from, double to, int size) {
        if (from < MARGIN || to - from > size)
            bar.setValue(bar.value() + static_cast<int>(std::floor(from - MARGIN)));
        else if (to > size - MARGIN)
            bar.setValue(bar.value() + static_cast<int>(std::ceil(to - size + MARGIN)));
    };
    move(*horizontalScrollBar(), area.left(), area.right(), viewport()->width());
    move(*verticalScrollBar(), area.top(), area.bottom(), viewport()->height());
}

void HygConstructionCanvas::select(std::vector<Range> blocks) {
    HygGridSelection selection = m_scene.selection;
    selection.setBlocks(std::move(blocks));
    restore(selection);
}

void HygConstructionCanvas::restore(const HygGridSelection & selection) {
    m_scene.selection = selection;
    m_scene.selection.fit(m_scene.cells.nx(), m_scene.cells.ny(), m_scene.plane);
    announceSelection();
}

void HygConstructionCanvas::selectColumns(std::size_t first, std::size_t last) {
    select({
        {static_cast<std::uint32_t>(first), 0, m_scene.plane, static_cast<std::uint32_t>(last),
         static_cast<std::uint32_t>(m_scene.cells.ny() - 1), m_scene.plane}
    });
}

void HygConstructionCanvas::selectRows(std::size_t first, std::size_t last) {
    select({
        {0, static_cast<std::uint32_t>(first), m_scene.plane, static_cast<std::uint32_t>(m_scene.cells.nx() - 1),
         static_cast<std::uint32_t>(last), m_scene.plane}
    });
}

void HygConstructionCanvas::selectAll() {
    if (m_scene.project != nullptr)
        selectColumns(0, m_scene.cells.nx() - 1);
}

void HygConstructionCanvas::selectMaterial() {
    if (m_scene.project == nullptr)
        return;
    constexpr std::size_t MAX_BLOCKS = 20000;
    const HygGridSelection::Cell cursor = m_scene.selection.cursor();
    select(m_scene.cells.blocksOf(m_scene.cells.material(cursor.i, cursor.j), MAX_BLOCKS));
}

void HygConstructionCanvas::highlight(std::vector<Range> blocks) {
    m_scene.highlighted = std::move(blocks);
    viewport()->update();
}

void HygConstructionCanvas::announceSelection() {
    updateAll();
    emit selectionChanged();
}

const HygConstructionScene::Mark * HygConstructionCanvas::hintAt(const QPointF & position) const {
    if (m_scene.project == nullptr || m_scene.marks.empty())
        return nullptr;
    for (const HygConstructionScene::Badge & badge : m_scene.badges(viewport()->rect()))
        if (QLineF(badge.middle, position).length() <= HygConstructionScene::BADGE_RADIUS + 2)
            return badge.mark;
    return nullptr;
}

HygGridSelection::Cell HygConstructionCanvas::cellNear(const QPointF & position) const {
    return {static_cast<std::uint32_t>(m_scene.x.nearestCell(position.x())),
            static_cast<std::uint32_t>(m_scene.y.nearestCell(position.y()))};
}

Range HygConstructionCanvas::blockAround(std::uint32_t i, std::uint32_t j) const {
    const auto between = [](const std::vector<std::uint32_t> & borders, std::uint32_t cell) {
        const auto next = std::upper_bound(borders.begin(), borders.end(), cell);
        return std::pair(*(next - 1), *next - 1);
    };
    const std::int32_t material = m_scene.cells.material(i, j);
    const auto & list = m_scene.project->m_assignments.m_list;
    if (material >= 0 && !m_scene.isStack())
        for (auto assignment = list.rbegin(); assignment != list.rend(); ++assignment) {
            Range range;
            if (assignment->m_type == type_t::Material && m_scene.showsIn(*assignment, range) &&
                range.contains(i, j, m_scene.plane))
                return range;
        }
    const auto [left, right] = between(m_scene.cells.columnBorders(), i);
    const auto [bottom, top] = between(m_scene.cells.rowBorders(), j);
    return {left, bottom, m_scene.plane, right, top, m_scene.plane};
}

std::optional<HygConstructionCanvas::Target> HygConstructionCanvas::targetAt(const QPointF & position,
                                                                             type_t type) const {
    if (m_scene.project == nullptr)
        return std::nullopt;
    if (m_scene.isBlank()) // what is dropped becomes the first layer
        return type == type_t::Material ? std::optional(Target{{Range{}}}) : std::nullopt;
    const bool isOnSide = type == type_t::Interface || type == type_t::ContactCondition;
    constexpr double REACH = 20; // a surface may be aimed at from outside
    const QRectF whole = m_scene.rectangle({0, 0, 0, static_cast<std::uint32_t>(m_scene.cells.nx() - 1),
                                            static_cast<std::uint32_t>(m_scene.cells.ny() - 1), 0});
    if (!whole.adjusted(-REACH, -REACH, REACH, REACH).contains(position) || (!isOnSide && !whole.contains(position)))
        return std::nullopt;
    const HygGridSelection::Cell cell = cellNear(position);
    Target target;
    if (m_scene.selection.contains(cell.i, cell.j))
        target.ranges = m_scene.selection.blocks();
    else
        target.ranges = {blockAround(cell.i, cell.j)};
    if (!isOnSide)
        return target;
    // The side that is nearest, of the block that the pointer is in.
    const auto inside = std::find_if(target.ranges.begin(), target.ranges.end(),
                                     [&](const Range & range) { return range.contains(cell.i, cell.j, range.back); });
    const Range block = inside == target.ranges.end() ? target.ranges.front() : *inside;
    target.ranges = {block};
    const QRectF area = m_scene.rectangle(block);
    const std::pair<double, location_t> distances[] = {
        {std::abs(position.x() - area.left()),   location_t::Left  },
        {std::abs(position.x() - area.right()),  location_t::Right },
        {std::abs(position.y() - area.bottom()), location_t::Bottom},
        {std::abs(position.y() - area.top()),    location_t::Top   }
    };
    const std::size_t count = m_scene.isStack() ? 2 : std::size(distances);
    target.side = std::min_element(distances, distances + count)->second;
    return target;
}

void HygConstructionCanvas::paintEvent(QPaintEvent *) {
    QPainter painter(viewport());
    if (m_scene.project == nullptr || m_scene.isBlank()) {
        painter.fillRect(viewport()->rect(), palette().color(QPalette::Window));
        return;
    }
    m_painter.paint(painter, m_scene, viewport()->size(), devicePixelRatioF(), palette(), hasFocus());
}

bool HygConstructionCanvas::viewportEvent(QEvent * event) {
    if (event->type() == QEvent::ToolTip) {
        const auto * help = static_cast<QHelpEvent *>(event);
        if (const HygConstructionScene::Mark * mark = hintAt(help->pos())) {
            QToolTip::showText(help->globalPos(), mark->text, viewport());
            return true;
        }
        const std::ptrdiff_t i = m_scene.x.cellAt(help->pos().x());
        const std::ptrdiff_t j = m_scene.y.cellAt(help->pos().y());
        if (m_scene.project != nullptr && !m_scene.isBlank() && i >= 0 && j >= 0)
            QToolTip::showText(help->globalPos(),
                               m_scene.cardOf(static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(j)),
                               viewport());
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void HygConstructionCanvas::mousePressEvent(QMouseEvent * event) {
    if (m_scene.project == nullptr || m_scene.isBlank())
        return;
    if (event->button() == Qt::MiddleButton ||
        (event->button() == Qt::LeftButton && (event->modifiers() & Qt::AltModifier) != 0)) {
        m_panFrom = event->pos();
        viewport()->setCursor(Qt::ClosedHandCursor);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    if (const HygConstructionScene::Mark * mark = hintAt(event->pos()))
        return emit hintActivated(mark->hint, event->globalPos());
    const std::ptrdiff_t i = m_scene.x.cellAt(event->pos().x());
    const std::ptrdiff_t j = m_scene.y.cellAt(event->pos().y());
    const bool isOutside = i < 0 || j < 0 || i >= static_cast<std::ptrdiff_t>(m_scene.x.count()) ||
                           j >= static_cast<std::ptrdiff_t>(m_scene.y.count());
    m_scene.highlighted.clear();
    m_isSelecting = true;
    const HygGridSelection::Cell cell = cellNear(event->pos());
    const bool isAdded = (event->modifiers() & Qt::ControlModifier) != 0;
    if (isOutside && event->modifiers() == Qt::NoModifier) {
        m_scene.selection.clear();
        m_isSelecting = false;
    } else if ((event->modifiers() & Qt::ShiftModifier) != 0 && !m_scene.selection.empty()) {
        m_scene.selection.moveCursor(cell, m_scene.plane);
    } else {
        m_scene.selection.setCorners(cell, cell, m_scene.plane, isAdded);
    }
    announceSelection();
}

void HygConstructionCanvas::mouseMoveEvent(QMouseEvent * event) {
    if (m_panFrom) {
        const QPoint move = event->pos() - *m_panFrom;
        m_panFrom = event->pos();
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - move.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - move.y());
        return;
    }
    if (!m_isSelecting || (event->buttons() & Qt::LeftButton) == 0) {
        viewport()->setCursor(hintAt(event->pos()) != nullptr ? Qt::PointingHandCursor : Qt::ArrowCursor);
        return;
    }
    selectTo(event->pos());
    if (viewport()->rect().contains(m_pointer))
        m_scrollTime.stop();
    else if (!m_scrollTime.isActive())
        m_scrollTime.start(SCROLL_MS, this);
}

void HygConstructionCanvas::selectTo(const QPoint & position) {
    m_pointer = position;
    const HygGridSelection::Cell cell = cellNear(position);
    if (cell == m_scene.selection.cursor())
        return;
    m_scene.selection.moveCursor(cell, m_scene.plane);
    announceSelection();
}

void HygConstructionCanvas::timerEvent(QTimerEvent * event) {
    if (event->timerId() != m_scrollTime.timerId())
        return QAbstractScrollArea::timerEvent(event);
    // The further the pointer is beyond the edge, the faster.
    const QRect area = viewport()->rect();
    const auto beyond = [](int at, int first, int last) { return at < first ? at - first : std::max(at - last, 0); };
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() +
                                    beyond(m_pointer.x(), area.left(), area.right()) / 4);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + beyond(m_pointer.y(), area.top(), area.bottom()) / 4);
    selectTo(m_pointer);
}

void HygConstructionCanvas::mouseReleaseEvent(QMouseEvent *) {
    m_isSelecting = false;
    m_scrollTime.stop();
    m_panFrom.reset();
    viewport()->unsetCursor();
}

void HygConstructionCanvas::mouseDoubleClickEvent(QMouseEvent * event) {
    if (event->button() == Qt::LeftButton && !m_scene.selection.empty())
        emit activated(event->globalPos());
}

void HygConstructionCanvas::wheelEvent(QWheelEvent * event) {
    if ((event->modifiers() & (Qt::ShiftModifier | Qt::AltModifier)) != 0) {
        // The platform turns the direction while Alt is held.
        const int step = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
        QScrollBar & bar =
            (event->modifiers() & Qt::ShiftModifier) != 0 ? *horizontalScrollBar() : *verticalScrollBar();
        bar.setValue(bar.value() - step);
    } else {
        zoomBy(std::pow(ZOOM_STEP, event->angleDelta().y() / 120.0), event->position());
    }
    event->accept();
}

void HygConstructionCanvas::moveCursor(int dx, int dy, bool isExtended, bool isFar) {
    HygGridSelection & selection = m_scene.selection;
    HygGridSelection::Cell cell = selection.cursor();
    const auto move = [isFar](std::uint32_t & index, int step, std::size_t count,
                              const std::vector<std::uint32_t> & borders) {
        if (step == 0)
            return;
        if (isFar) { // to the next layer
            const auto next = std::upper_bound(borders.begin(), borders.end(), index);
            if (step > 0)
                index = std::min(*next, static_cast<std::uint32_t>(count) - 1);
            else
                index = *(next - 1) == index && index > 0 ? *(next - 2) : *(next - 1);
        } else {
            index = static_cast<std::uint32_t>(
                std::clamp<std::int64_t>(std::int64_t{index} + step, 0, static_cast<std::int64_t>(count) - 1));
        }
    };
    if (selection.empty()) {
        selection.setCorners(cell, cell, m_scene.plane);
    } else {
        move(cell.i, dx, m_scene.cells.nx(), m_scene.cells.columnBorders());
        move(cell.j, dy, m_scene.cells.ny(), m_scene.cells.rowBorders());
        if (isExtended)
            selection.moveCursor(cell, m_scene.plane);
        else
            selection.setCorners(cell, cell, m_scene.plane);
    }
    ensureVisible({cell.i, cell.j, 0, cell.i, cell.j, 0});
    announceSelection();
}

void HygConstructionCanvas::keyPressEvent(QKeyEvent * event) {
    if (m_scene.project == nullptr || m_scene.isBlank()) {
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    const bool isShift = (event->modifiers() & Qt::ShiftModifier) != 0;
    const bool isControl = (event->modifiers() & Qt::ControlModifier) != 0;
    constexpr int FAR = 1 << 28;
    const Range bounds = m_scene.selection.bounds();
    const HygGridSelection::Cell cursor = m_scene.selection.cursor();
    switch (event->key()) {
    case Qt::Key_Left:
        return moveCursor(-1, 0, isShift, isControl);
    case Qt::Key_Right:
        return moveCursor(1, 0, isShift, isControl);
    case Qt::Key_Up:
        return moveCursor(0, 1, isShift, isControl);
    case Qt::Key_Down:
        return moveCursor(0, -1, isShift, isControl);
    case Qt::Key_Home:
        return moveCursor(-FAR, isControl ? FAR : 0, isShift, false);
    case Qt::Key_End:
        return moveCursor(FAR, isControl ? -FAR : 0, isShift, false);
    case Qt::Key_PageUp:
        return emit planeRequested(1);
    case Qt::Key_PageDown:
        return emit planeRequested(-1);
    case Qt::Key_Space:
        if (m_scene.selection.empty())
            return moveCursor(0, 0, false, false);
        if (isControl)
            return selectColumns(bounds.left, bounds.right);
        if (isShift)
            return selectRows(bounds.bottom, bounds.top);
        break;
    case Qt::Key_M:
        if (!isControl)
            return selectMaterial();
        break;
    case Qt::Key_I: {
        const QRectF cell = m_scene.rectangle({cursor.i, cursor.j, 0, cursor.i, cursor.j, 0});
        QToolTip::showText(viewport()->mapToGlobal(cell.center().toPoint()), m_scene.cardOf(cursor.i, cursor.j),
                           viewport());
        return;
    }
    case Qt::Key_Plus:
        return zoomIn();
    case Qt::Key_Minus:
        return zoomOut();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!m_scene.selection.empty())
            return emit activated(viewport()->mapToGlobal(m_scene.rectangle(bounds).center().toPoint()));
        break;
    case Qt::Key_Escape:
        m_scene.selection.clear();
        m_scene.highlighted.clear();
        return announceSelection();
    default:
        break;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

void HygConstructionCanvas::contextMenuEvent(QContextMenuEvent * event) {
    if (m_scene.project == nullptr || m_scene.isBlank())
        return;
    if (event->reason() == QContextMenuEvent::Mouse) {
        const HygGridSelection::Cell cell = cellNear(event->pos());
        if (!m_scene.selection.contains(cell.i, cell.j)) {
            m_scene.selection.setCorners(cell, cell, m_scene.plane);
            announceSelection();
        }
        emit menuRequested(event->globalPos());
    } else {
        emit menuRequested(viewport()->mapToGlobal(m_scene.rectangle(m_scene.selection.bounds()).center().toPoint()));
    }
}

void HygConstructionCanvas::dragEnterEvent(QDragEnterEvent * event) {
    if (dragged(*event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore(); // the window takes project files
}

void HygConstructionCanvas::dragMoveEvent(QDragMoveEvent * event) {
    const auto what = dragged(*event->mimeData());
    const auto target = what ? targetAt(event->pos(), what->type) : std::nullopt;
    if (!target) {
        highlight({});
        event->ignore();
        return;
    }
    // Of a side the layer of cells along it.
    HYGRION::Assignment assignment;
    assignment.m_location = target->side;
    std::vector<Range> shown;
    for (const Range & range : target->ranges) {
        assignment.m_range = range;
        shown.push_back(HYGRION::edit::effectiveRange(assignment));
    }
    highlight(std::move(shown));
    event->acceptProposedAction();
}

void HygConstructionCanvas::dragLeaveEvent(QDragLeaveEvent *) {
    highlight({});
}

void HygConstructionCanvas::dropEvent(QDropEvent * event) {
    highlight({});
    const auto what = dragged(*event->mimeData());
    if (const auto target = what ? targetAt(event->posF(), what->type) : std::nullopt) {
        event->acceptProposedAction();
        if (what->isFile)
            emit fileDropped(what->name, *target);
        else
            emit dropped(static_cast<int>(what->type), what->name, *target);
    }
}

void HygConstructionCanvas::focusInEvent(QFocusEvent * event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void HygConstructionCanvas::focusOutEvent(QFocusEvent * event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

void HygConstructionCanvas::changeEvent(QEvent * event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::StyleChange) {
        ++m_scene.version;
        updateAll();
    }
}
