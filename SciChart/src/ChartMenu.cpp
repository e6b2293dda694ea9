// What the context menu and the keys of a chart do.
#include "AxisDialog.h"

#include <SCI/Chart.h>

#include <KOR/Exception.h>

#include <QContextMenuEvent>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

namespace SCI {

void Chart::editAxes(axis_t focused) {
    AxisDialog dialog(*this, focused, this);
    dialog.exec();
}

void Chart::fillMenu(QMenu & menu) {
    const auto add = [&](const char * name, const QString & text, const QKeySequence & key, const auto & action) {
        QAction * item = menu.addAction(text, this, action);
        item->setObjectName(QLatin1String(name));
        item->setShortcut(key);
        item->setShortcutVisibleInContextMenu(true);
        return item;
    };
    add("showAll", tr("Show &all"), Qt::Key_Home, [this] { showAll(); });
    add("back", tr("&Previous view"), Qt::Key_Backspace, [this] { showPrevious(); })->setEnabled(hasPrevious());
    add("axes", tr("&Ranges and units..."), Qt::Key_F4, [this] { editAxes(X_BOTTOM); });
    if (canHaveEqualScales()) {
        QAction * equal =
            add("equalScales", tr("&Equal scales"), Qt::Key_E, [this] { setEqualScales(!hasEqualScales()); });
        equal->setCheckable(true);
        equal->setChecked(hasEqualScales());
        equal->setToolTip(tr("A length is as long along y as along x"));
    }
    menu.addSeparator();
    add("copyPicture", tr("&Copy picture"), QKeySequence::Copy, [this] { copyPicture(); });
    add("copySvg", tr("Copy as S&VG"), {}, [this] { guarded([this] { copySvg(); }); });
    add("copyCsv", tr("Copy &table"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, [this] { guarded([this] { copyCsv(); }); });
    menu.addSeparator();
    add("savePicture", tr("&Save picture..."), {}, [this] { savePicture(); });
    add("saveCsv", tr("Save ta&ble..."), {}, [this] { saveCsv(); });
    add("print", tr("Pr&int..."), {}, [this] { print(); });
}

void Chart::contextMenuEvent(QContextMenuEvent * event) {
    QMenu menu(this);
    fillMenu(menu);
    menu.exec(event->globalPos());
}

/// Tells the user what failed.
void Chart::guarded(const std::function<void()> & action) {
    try {
        action();
    } catch (const KOR::Exception & ex) {
        QMessageBox box(QMessageBox::Critical, tr("Chart"), QString::fromStdString(ex.message()), QMessageBox::Ok,
                        this);
        box.setDetailedText(QString::fromUtf8(ex.what()));
        box.exec();
    }
}

void Chart::savePicture() {
    const QString path = QFileDialog::getSaveFileName(this, tr("Save picture"), QString(),
                                                      tr("Picture (*.png);;Vector graphics (*.svg);;Document (*.pdf)"));
    if (!path.isEmpty())
        guarded([&] { writePicture(path, size(), 2); });
}

void Chart::saveCsv() {
    const QString path = QFileDialog::getSaveFileName(this, tr("Save table"), QString(), tr("Table (*.csv)"));
    if (!path.isEmpty())
        guarded([&] { writeCsv(path); });
}

void Chart::print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        print(printer);
}

void Chart::print(QPrinter & printer) const {
    QPainter painter(&printer);
    const QRectF page(QPointF(0, 0), printer.pageRect(QPrinter::DevicePixel).size());
    // As wide as the page, in the proportions of the window.
    QSizeF picture = QSizeF(size()).scaled(page.size(), Qt::KeepAspectRatio);
    renderLight(painter, QRectF(QPointF(0, 0), picture));
}

} // namespace SCI
