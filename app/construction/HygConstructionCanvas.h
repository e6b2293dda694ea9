#pragma once

#include "construction/HygConstructionScene.h"
#include "construction/HygGridPainter.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>

#include <optional>

class HygGridRuler;

/// The drawing of the construction: zoom, pan and selection. What is to be changed it only asks for, by signals.
class HygConstructionCanvas : public QAbstractScrollArea {
    Q_OBJECT
public:
    /// Of a definition that is dragged: the type and the name, a line each.
    static constexpr const char * MIME_TYPE = "application/x-hygrion-definition";

    /// Where a drop would assign.
    struct Target {
        std::vector<HYGRION::Range> ranges;
        HYGRION::Assignment::location_t side = HYGRION::Assignment::location_t::Element;
    };

    explicit HygConstructionCanvas(QWidget * parent = nullptr);

    /// Whoever changes the scene calls sceneChanged(), or selectionChanged() if it is only the selection.
    HygConstructionScene & scene() { return m_scene; }
    const HygConstructionScene & scene() const { return m_scene; }
    /// \param isNewProject also shows the whole construction
    void sceneChanged(bool isNewProject = false);

    void select(std::vector<HYGRION::Range> blocks);
    void restore(const HygGridSelection & selection);
    void selectColumns(std::size_t first, std::size_t last);
    void selectRows(std::size_t first, std::size_t last);
    void selectAll();
    /// All cells of the material under the keyboard's cell.
    void selectMaterial();
    /// Colours blocks without selecting them.
    void highlight(std::vector<HYGRION::Range> blocks);

    void fitAll();
    void zoomToSelection();
    /// Around a point of the viewport.
    void zoomBy(double factor, const QPointF & around);
    void zoomIn();
    void zoomOut();
    /// Brings a block into view with the least move.
    void ensureVisible(const HYGRION::Range & range);
    bool isFitted() const { return m_isFitted; }

    /// The block that belongs together around a cell: the range of its material, or, without one, what lies between the
    /// borders of layers.
    HYGRION::Range blockAround(std::uint32_t i, std::uint32_t j) const;
    /// Where a definition of a type dropped at a point goes to; none outside of the construction.
    std::optional<Target> targetAt(const QPointF & position, HYGRION::Assignment::type_t type) const;
    HygGridRuler & ruler(Qt::Orientation orientation) { return orientation == Qt::Horizontal ? *m_top : *m_left; }

signals:
    void selectionChanged();
    /// Double click or Enter: the user wants to assign something to the selection.
    void activated(const QPoint & globalPosition);
    void menuRequested(const QPoint & globalPosition);
    /// The sign of a hint was clicked.
    void hintActivated(std::size_t hint, const QPoint & globalPosition);
    /// \param type HYGRION::Assignment::type_t
    void dropped(int type, const QString & name, const HygConstructionCanvas::Target & target);
    /// A material file was dropped.
    void fileDropped(const QString & path, const HygConstructionCanvas::Target & target);
    void widthRequested(Qt::Orientation orientation, int first, int last);
    /// A plane further to the front or to the back.
    void planeRequested(int step);

protected:
    void paintEvent(QPaintEvent * event) override;
    void resizeEvent(QResizeEvent * event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;
    void mouseDoubleClickEvent(QMouseEvent * event) override;
    void timerEvent(QTimerEvent * event) override;
    void wheelEvent(QWheelEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;
    void contextMenuEvent(QContextMenuEvent * event) override;
    void dragEnterEvent(QDragEnterEvent * event) override;
    void dragMoveEvent(QDragMoveEvent * event) override;
    void dragLeaveEvent(QDragLeaveEvent * event) override;
    void dropEvent(QDropEvent * event) override;
    void focusInEvent(QFocusEvent * event) override;
    void focusOutEvent(QFocusEvent * event) override;
    void changeEvent(QEvent * event) override;

private:
    void layOut();
    void placeOrigins();
    void placeRulers();
    double fittingScale(const QRectF & room, double lengthX, double lengthY) const;
    void setScale(double scale);
    const HygConstructionScene::Mark * hintAt(const QPointF & position) const;
    HygGridSelection::Cell cellNear(const QPointF & position) const;
    void moveCursor(int dx, int dy, bool isExtended, bool isFar);
    /// Extends the selection to the pointer.
    void selectTo(const QPoint & position);
    void announceSelection();
    void updateAll();

    HygConstructionScene m_scene;
    HygGridPainter m_painter;
    HygGridRuler * m_top;
    HygGridRuler * m_left;
    double m_scale = 1; ///< pixels per drawn unit, of x in a stack of layers
    bool m_isFitted = true;
    bool m_isSelecting = false;
    std::optional<QPoint> m_panFrom;
    QPoint m_pointer;         ///< while something is being selected
    QBasicTimer m_scrollTime; ///< runs while the pointer is held beyond the edge
};
