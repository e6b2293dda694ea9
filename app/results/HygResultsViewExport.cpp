// What is taken along from the results, and what is kept of them.
#include "HygAnimation.h"
#include "HygCoreMessages.h"
#include "HygResultTree.h"
#include "HygResultsView.h"
#include "HygThresholdField.h"
#include "HygTimeBar.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>

#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QProgressDialog>
#include <QToolButton>

namespace {

constexpr int MAX_FRAMES = 2000;
constexpr QSize FRAME_SIZE{960, 640};
constexpr QSize PICTURE_SIZE{1200, 800};

} // namespace

bool HygResultsView::exportChart(const QString & path) {
    try {
        if (path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive))
            KOR::writeFile(path.toStdString(), m_chart->csv());
        else
            SCI::Chart::writePicture(
                path, PICTURE_SIZE, 2, m_chart->chart().title(),
                [this](QPainter & painter, const QRectF & rectangle) { m_chart->render(painter, rectangle); });
        return true;
    } catch (const KOR::Exception & ex) {
        QMessageBox::critical(
            this, tr("Export"),
            HygCoreMessages::told(tr("The file could not be written. Is there room on the disk, and may "
                                     "files be written in this directory?"),
                                  QString::fromUtf8(ex.what())));
        return false;
    }
}

void HygResultsView::exportAnimation(const QString & path) {
    auto * animation = new HygAnimation(*m_chart, path, FRAME_SIZE, MAX_FRAMES, this);
    auto * progress = new QProgressDialog(tr("Writing the pictures…"), tr("Stop"), 0, animation->frameCount(), this);
    progress->setObjectName(QStringLiteral("animationProgress"));
    progress->setWindowModality(Qt::WindowModal);
    progress->setAutoReset(false);
    connect(animation, &HygAnimation::progressed, progress, &QProgressDialog::setValue);
    const auto end = [animation, progress] {
        animation->deleteLater();
        progress->deleteLater();
    };
    connect(progress, &QProgressDialog::canceled, this, end);
    connect(animation, &HygAnimation::finished, this, [this, end](const QString & problem) {
        end();
        if (!problem.isEmpty())
            QMessageBox::critical(this, tr("Export"), problem);
    });
}

void HygResultsView::fillExport() {
    QMenu & menu = *m_export->menu();
    menu.clear();
    const auto save = [this](const QString & title, const QString & filter, const QString & suffix) {
        QFileDialog dialog(this, title, m_outputDirectory, filter);
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setDefaultSuffix(suffix);
        return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
    };
    menu.addAction(tr("Picture…"), this, [this, save] {
        if (const QString path = save(tr("Export picture"), tr("Pictures (*.png *.svg *.pdf)"), "png"); !path.isEmpty())
            exportChart(path);
    });
    menu.addAction(tr("Table…"), this, [this, save] {
        if (const QString path = save(tr("Export table"), tr("Tables (*.csv)"), "csv"); !path.isEmpty())
            exportChart(path);
    });
    menu.addAction(tr("Animation…"), this,
                   [this, save] {
                       const QString filter = tr("Pictures and films (%1)").arg(HygAnimation::formats().join(' '));
                       if (const QString path = save(tr("Export animation"), filter, "png"); !path.isEmpty())
                           exportAnimation(path);
                   })
        ->setEnabled(!m_chart->isOverTime());
    menu.addSeparator();
    menu.addAction(tr("Copy picture"), this, [this] { m_chart->copyPicture(); });
    menu.addAction(tr("Copy table"), this, [this] { m_chart->copyTable(); });
}

HygResultLayout HygResultsView::layoutOf(const QString & name) const {
    HygResultLayout layout;
    layout.name = name;
    for (const QString & path : m_tree->chosen())
        layout.files << HygResultLayout::stored(path, m_outputDirectory);
    layout.directories = m_tree->furtherDirectories();
    layout.options = m_chart->options();
    layout.time = m_chart->time(m_timeBar->index());
    return layout;
}

void HygResultsView::apply(const HygResultLayout & layout) {
    if (m_tree->furtherDirectories() != layout.directories)
        m_tree->setFurtherDirectories(layout.directories);
    QStringList paths;
    for (const QString & file : layout.files)
        paths << HygResultLayout::resolved(file, m_outputDirectory);
    m_threshold->setUnitOf(layout.options.unit);
    m_chart->setOptions(layout.options);
    showOptions();
    m_tree->choose(paths);
    showOptions();
    updateOffers();
    if (!m_chart->files().empty())
        m_timeBar->setIndex(m_chart->files()[0]->indexAt(layout.time));
}

std::vector<HygResultLayout> HygResultsView::layouts() const {
    return HygResultLayout::read(m_outputDirectory);
}

bool HygResultsView::writeLayouts(const std::vector<HygResultLayout> & all, const QString & done) {
    std::vector<HygResultLayout> before = layouts();
    try {
        HygResultLayout::write(m_outputDirectory, all);
    } catch (const KOR::Exception & ex) {
        QMessageBox::critical(this, tr("Chart layouts"),
                              HygCoreMessages::told(tr("The layouts could not be saved beside the results."),
                                                    QString::fromUtf8(ex.what())));
        return false;
    }
    m_layoutsBefore = std::move(before);
    m_layoutStory->setText(
        done.isEmpty() ? QString() : done.toHtmlEscaped() + QStringLiteral(" <a href=\"undo\">%1</a>").arg(tr("Undo")));
    m_layoutStory->setVisible(!done.isEmpty());
    return true;
}

void HygResultsView::undoLayouts() {
    writeLayouts(m_layoutsBefore, {});
}

bool HygResultsView::saveLayout(const QString & name) {
    std::vector<HygResultLayout> all = layouts();
    const bool isNew = std::erase_if(all, [&name](const HygResultLayout & layout) { return layout.name == name; }) == 0;
    all.push_back(layoutOf(name));
    return writeLayouts(all, isNew ? QString() : tr("The layout '%1' has been replaced.").arg(name));
}

void HygResultsView::askForLayout(const QString & name) {
    const std::vector<HygResultLayout> known = layouts();
    const bool isTaken =
        std::any_of(known.begin(), known.end(), [&name](const HygResultLayout & each) { return each.name == name; });
    if (!name.isEmpty() &&
        (!isTaken ||
         QMessageBox::question(this, tr("Chart layouts"),
                               tr("There is a layout '%1' already. Replace it?").arg(name)) == QMessageBox::Yes))
        saveLayout(name);
}

void HygResultsView::removeLayout(const QString & name) {
    if (QMessageBox::question(this, tr("Chart layouts"), tr("Remove the layout '%1'?").arg(name)) != QMessageBox::Yes)
        return;
    std::vector<HygResultLayout> kept = layouts();
    std::erase_if(kept, [&name](const HygResultLayout & other) { return other.name == name; });
    writeLayouts(kept, tr("The layout '%1' has been removed.").arg(name));
}

void HygResultsView::fillLayouts() {
    QMenu & menu = *m_layouts->menu();
    menu.clear();
    const std::vector<HygResultLayout> all = layouts();
    for (const HygResultLayout & layout : all)
        menu.addAction(layout.name, this, [this, layout] { apply(layout); });
    menu.addSeparator();
    menu.addAction(tr("Save as…"), this,
                   [this] { askForLayout(QInputDialog::getText(this, tr("Chart layouts"), tr("Name:")).trimmed()); })
        ->setEnabled(!m_outputDirectory.isEmpty() && !m_chart->files().empty());
    QMenu * removal = menu.addMenu(tr("Remove"));
    removal->setEnabled(!all.empty());
    for (const HygResultLayout & layout : all)
        removal->addAction(layout.name, this, [this, name = layout.name] { removeLayout(name); });
    if (!m_layoutStory->isHidden())
        menu.addAction(tr("Undo"), this, &HygResultsView::undoLayouts);
}
