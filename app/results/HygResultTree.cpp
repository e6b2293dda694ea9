#include "HygResultTree.h"

#include "HygCoreMessages.h"
#include "HygIconEngine.h"
#include "outputs/HygOutputTexts.h"

#include <DATAIO/DataIO.h>
#include <QtExt/Palette.h>
#include <SCI/Axis.h>

#include <KOR/Exception.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QEvent>
#include <QFileInfo>
#include <QHash>
#include <QHeaderView>
#include <QPointer>
#include <QThreadPool>

#include <optional>
#include <utility>

namespace {

constexpr int PATH = Qt::UserRole;
constexpr int MAX_FILES = 2000;
constexpr int INDENTATION = 14; ///< [px]

/// What is known of a file. A binary file is looked at again when it has changed, a text only while it is unreadable: its
/// lines would all have to be counted.
struct Description {
    QDateTime changed;
    std::string quantity, unit, created;
    std::size_t valueCount = 0;
    std::optional<std::size_t> timeCount;        ///< not of texts
    std::optional<HygResultFile::Format> format; ///< once another thread has found out
    bool isKnown = false;
    QString cause; ///< why it cannot be read; empty if it can
    bool isBroken() const { return !cause.isEmpty(); }
};

QHash<QString, Description> & descriptions() {
    static QHash<QString, Description> known; // of the GUI thread
    return known;
}

const Description & describe(const QFileInfo & file) {
    Description & description = descriptions()[file.filePath()];
    const bool isText = file.suffix() == QLatin1String("h6o");
    const bool isSame = description.changed == file.lastModified() || (!description.isBroken() && isText);
    if (description.isKnown && isSame)
        return description;
    description.isKnown = true;
    description.changed = file.lastModified();
    try {
        DATAIO::DataIO data;
        HygResultFile::open(data, file.filePath());
        const DATAIO::DataHeader & header = data.header();
        if (header.created != description.created || header.valueCount() != description.valueCount)
            description.format.reset();
        if (header.valueCount() == 1)
            description.format = HygResultFile::Format::SERIES;
        description.quantity = header.quantityKeyword;
        description.unit = header.valueUnit;
        description.created = header.created;
        description.valueCount = header.valueCount();
        if (!isText)
            description.timeCount = data.timeCount();
        description.cause.clear();
    } catch (const KOR::Exception & ex) {
        description.cause = QString::fromStdString(ex.cause());
    }
    return description;
}

QString kindText(HygResultFile::Format format) {
    using Format = HygResultFile::Format;
    return format == Format::SERIES     ? HygResultTree::tr("course")
           : format == Format::VOLUME   ? HygResultTree::tr("volume")
           : format >= Format::PLANE_XY ? HygResultTree::tr("field")
                                        : HygResultTree::tr("profile");
}

/// "Relative humidity [%]"
QString quantityOf(const Description & description) {
    if (description.isBroken())
        return HygResultTree::tr("cannot be read");
    const QString unit = SCI::printedUnit(QString::fromStdString(description.unit));
    const QString text = HygOutputTexts::quantity(description.quantity);
    return unit.isEmpty() ? text : QStringLiteral("%1 [%2]").arg(text, unit);
}

/// "profile × 366", as far as it is known; \p isLong "profile, 366 times"
QString kindOf(const Description & description, bool isLong = false) {
    QStringList parts;
    if (!description.isBroken() && description.format)
        parts << kindText(*description.format);
    if (!description.isBroken() && description.timeCount)
        parts << (isLong ? HygResultTree::tr("%n time(s)", nullptr, static_cast<int>(*description.timeCount))
                         : QString::number(*description.timeCount));
    return parts.join(isLong ? QStringLiteral(", ") : QStringLiteral(" × "));
}

QString tipOf(const Description & description) {
    return !description.isBroken()
               ? quantityOf(description) + '\n' + kindOf(description, true)
               : HygCoreMessages::told(HygResultTree::tr("This file cannot be read; it may be cut off, of another "
                                                         "version, or no result file at all."),
                                       description.cause);
}

void describeIn(QTreeWidgetItem & item, const Description & description) {
    item.setText(2, kindOf(description));
    for (const int column : {1, 2})
        item.setToolTip(column, tipOf(description));
}

} // namespace

HygResultTree::HygResultTree(QWidget * parent) : QTreeWidget(parent) {
    setObjectName(QStringLiteral("resultTree"));
    setColumnCount(3);
    setIndentation(INDENTATION);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    setUniformRowHeights(true);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(1, QHeaderView::Stretch);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // what is cut stands in the tool tip
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem * item, int column) {
        if (column == 0 && !m_isFilling && !item->data(0, PATH).toString().isEmpty())
            setChosen(item, item->checkState(0) == Qt::Checked);
    });
    // A click on the line shows this file alone, the box adds it to the others.
    connect(this, &QTreeWidget::itemActivated, this,
            [this](const QTreeWidgetItem * item) { choose({item->data(0, PATH).toString()}); });
    connect(this, &QTreeWidget::itemPressed, this, [this] { m_chosenBefore = m_chosen; });
    connect(this, &QTreeWidget::itemClicked, this, [this](const QTreeWidgetItem * item) {
        if (m_chosen == m_chosenBefore) // it was not the box
            choose({item->data(0, PATH).toString()});
    });
    connect(this, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem * item) {
        if (item != nullptr && !m_isFilling && m_chosen.size() <= 1 && !item->data(0, PATH).toString().isEmpty())
            choose({item->data(0, PATH).toString()});
    });
    retranslate();
}

void HygResultTree::setProjectDirectory(const QString & directory) {
    m_project = directory;
    refresh();
}

void HygResultTree::setFurtherDirectories(const QStringList & directories) {
    m_further = directories;
    m_further.removeDuplicates();
    refresh();
}

void HygResultTree::addDirectory(const QString & directory) {
    if (directory.isEmpty() || m_further.contains(directory) || directory == m_project)
        return;
    m_further << directory;
    refresh();
    emit furtherDirectoriesChanged();
}

void HygResultTree::removeDirectory(const QString & directory) {
    m_further.removeAll(directory);
    QStringList kept = m_chosen;
    kept.erase(std::remove_if(kept.begin(), kept.end(),
                              [&](const QString & path) { return path.startsWith(directory + '/'); }),
               kept.end());
    refresh();
    choose(kept);
    emit furtherDirectoriesChanged();
}

QString HygResultTree::currentFurtherDirectory() const {
    const QTreeWidgetItem * item = currentItem();
    while (item != nullptr && item->parent() != nullptr)
        item = item->parent();
    const int index = item == nullptr ? -1 : indexOfTopLevelItem(const_cast<QTreeWidgetItem *>(item));
    return m_further.value(m_project.isEmpty() ? index : index - 1);
}

void HygResultTree::addRoot(const QString & directory, const QString & title) {
    auto * root = new QTreeWidgetItem(this, {title});
    root->setIcon(0, HygIconEngine::icon(QStringLiteral("folder")));
    root->setToolTip(0, QDir::toNativeSeparators(directory));
    root->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    const QString results = QFileInfo(directory + "/results").isDir() ? directory + "/results" : directory;
    QStringList paths;
    QDirIterator files(results, {QStringLiteral("*.h6b"), QStringLiteral("*.h6o")}, QDir::Files | QDir::Readable,
                       QDirIterator::Subdirectories);
    while (files.hasNext() && paths.size() < MAX_FILES)
        paths << files.next();
    paths.sort(Qt::CaseInsensitive);
    for (const QString & path : paths) {
        const QFileInfo file(path);
        const Description & description = describe(file);
        QString name = QDir(results).relativeFilePath(path);
        name.chop(file.suffix().size() + 1);
        auto * item = new QTreeWidgetItem(root, {name, quantityOf(description), kindOf(description)});
        item->setData(0, PATH, path);
        item->setToolTip(0, QDir::toNativeSeparators(path));
        for (const int column : {1, 2})
            item->setToolTip(column, tipOf(description));
        if (description.isBroken()) {
            item->setIcon(
                1, HygIconEngine::icon(QStringLiteral("error"), QtExt::Palette::color(QtExt::Palette::ERROR_TEXT)));
            item->setFlags(Qt::ItemIsEnabled);
        } else {
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            item->setCheckState(0, m_chosen.contains(path) ? Qt::Checked : Qt::Unchecked);
        }
    }
    if (paths.isEmpty()) {
        auto * item = new QTreeWidgetItem(root, {tr("no results yet")});
        item->setFlags(Qt::NoItemFlags);
    }
    root->setExpanded(true);
}

void HygResultTree::refresh() {
    m_isFilling = true;
    const QString current = currentItem() == nullptr ? QString() : currentItem()->data(0, PATH).toString();
    clear();
    if (!m_project.isEmpty())
        addRoot(m_project, tr("This project"));
    for (const QString & directory : m_further)
        addRoot(directory, QFileInfo(directory).fileName());
    QStringList there;
    for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item) {
        const QString path = (*item)->data(0, PATH).toString();
        if (!path.isEmpty())
            there << path;
        if (!path.isEmpty() && path == current)
            setCurrentItem(*item);
    }
    m_isFilling = false;
    findKinds();
    const auto isGone = [&there](const QString & path) { return !there.contains(path); };
    const auto gone = std::remove_if(m_chosen.begin(), m_chosen.end(), isGone);
    if (gone != m_chosen.end()) {
        m_chosen.erase(gone, m_chosen.end());
        emit chosenChanged();
    }
}

void HygResultTree::updateCounts() {
    m_isFilling = true;
    for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item) {
        const QString path = (*item)->data(0, PATH).toString();
        if (path.isEmpty() || !((*item)->flags() & Qt::ItemIsUserCheckable))
            continue;
        const QString text = kindOf(describe(QFileInfo(path)));
        if (text != (*item)->text(2))
            describeIn(**item, descriptions()[path]);
    }
    m_isFilling = false;
}

/// Which places the values belong to is told by the geometry, which may be large.
void HygResultTree::findKinds() {
    QStringList unknown;
    for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item) {
        const auto found = descriptions().constFind((*item)->data(0, PATH).toString());
        if (found != descriptions().constEnd() && !found->isBroken() && !found->format)
            unknown << found.key();
    }
    if (unknown.isEmpty() || std::exchange(m_isLooking, true))
        return;
    const QPointer<HygResultTree> self(this);
    QThreadPool::globalInstance()->start([self, unknown] {
        QHash<QString, HygResultFile::Format> formats;
        std::unique_ptr<HygResultFile> file; // keeps the geometry for the next one
        for (const QString & path : unknown) {
            try {
                file = std::make_unique<HygResultFile>(path);
                formats[path] = file->format();
            } catch (const KOR::Exception &) { // gone meanwhile
                formats[path] = HygResultFile::Format::SERIES;
            }
        }
        QMetaObject::invokeMethod(QCoreApplication::instance(), [self, formats] {
            if (self != nullptr)
                self->takeKinds(formats);
        });
    });
}

void HygResultTree::takeKinds(const QHash<QString, HygResultFile::Format> & formats) {
    m_isLooking = false;
    m_isFilling = true;
    for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item) {
        const QString path = (*item)->data(0, PATH).toString();
        if (!formats.contains(path))
            continue;
        Description & description = descriptions()[path];
        description.format = formats[path];
        describeIn(**item, description);
    }
    m_isFilling = false;
    findKinds(); // of those that came meanwhile
}

bool HygResultTree::hasFiles() const {
    for (QTreeWidgetItemIterator item(const_cast<HygResultTree *>(this)); *item != nullptr; ++item)
        if ((*item)->flags().testFlag(Qt::ItemIsUserCheckable))
            return true;
    return false;
}

void HygResultTree::setChosen(QTreeWidgetItem * item, bool isChosen) {
    const QString path = item->data(0, PATH).toString();
    m_chosen.removeAll(path);
    if (isChosen)
        m_chosen << path;
    emit chosenChanged();
}

void HygResultTree::choose(const QStringList & paths) {
    QStringList wanted = paths;
    wanted.removeAll(QString());
    if (wanted.isEmpty() && !paths.isEmpty())
        return; // a directory
    m_isFilling = true;
    QStringList there;
    for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item) {
        const QString path = (*item)->data(0, PATH).toString();
        if (path.isEmpty() || !((*item)->flags() & Qt::ItemIsUserCheckable))
            continue;
        (*item)->setCheckState(0, wanted.contains(path) ? Qt::Checked : Qt::Unchecked);
        there << path;
    }
    m_isFilling = false;
    m_chosen.clear();
    for (const QString & path : wanted)
        if (there.contains(path))
            m_chosen << path;
    emit chosenChanged();
}

void HygResultTree::changeEvent(QEvent * event) {
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void HygResultTree::retranslate() {
    setHeaderLabels({tr("Results"), tr("Quantity"), tr("Shows")});
    setAccessibleName(tr("Result files"));
    setToolTip(tr("Choose a file to show it; tick several to show them in one chart."));
    refresh();
}
