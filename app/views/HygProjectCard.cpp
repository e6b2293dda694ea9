#include "HygProjectCard.h"

#include "HygIconEngine.h"
#include "HygProjectDelegate.h"
#include "HygProjectListModel.h"

#include <QAction>
#include <QBoxLayout>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QPainter>
#include <QUrl>

namespace {

constexpr const char * ICONS[] = {"recent", "example"};
constexpr const char * FILE_ICONS[] = {"project", "construction"};
constexpr const char * LIST_NAMES[] = {"recentProjects", "exampleProjects"};

} // namespace

HygProjectCard::HygProjectCard(kind_t kind, QWidget * parent)
    : QFrame(parent), m_kind(kind), m_model(new HygProjectListModel(this)), m_icon(new QLabel(this)),
      m_heading(new QLabel(this)), m_empty(new QLabel(this)), m_list(new QListView(this)) {
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 10, 10);
    layout->setSpacing(8);
    auto * top = new QHBoxLayout;
    top->setSpacing(8);
    top->addWidget(m_icon);
    top->addWidget(m_heading, 1);
    layout->addLayout(top);
    layout->addWidget(m_empty, 1);
    layout->addWidget(m_list, 1);

    m_empty->setWordWrap(true);
    m_empty->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_empty->setForegroundRole(QPalette::PlaceholderText);
    m_empty->setContentsMargins(2, 0, 6, 0);
    m_empty->setObjectName(QLatin1String(LIST_NAMES[kind]) + QStringLiteral("Empty"));
    m_heading->setBuddy(m_list);

    m_list->setObjectName(QLatin1String(LIST_NAMES[kind]));
    m_list->setModel(m_model);
    m_list->setItemDelegate(new HygProjectDelegate(QLatin1String(FILE_ICONS[kind]), kind == Recent, m_list));
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setMouseTracking(true);
    m_list->setUniformItemSizes(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_list, &QListView::clicked, this, &HygProjectCard::open);
    m_list->installEventFilter(this);
    connect(m_list, &QListView::customContextMenuRequested, this, &HygProjectCard::showMenu);
    setFiles({});
    updateHeading();
}

void HygProjectCard::setFiles(const QStringList & paths) {
    const int row = m_list->currentIndex().row();
    m_model->setFiles(paths);
    if (row >= 0 && !paths.isEmpty())
        m_list->setCurrentIndex(m_model->index(std::min(row, paths.size() - 1)));
    m_list->setVisible(!paths.isEmpty());
    m_empty->setVisible(paths.isEmpty());
}

QStringList HygProjectCard::files() const {
    return m_model->files();
}

void HygProjectCard::setOpenable(bool isOpenable) {
    m_isOpenable = isOpenable;
    m_list->viewport()->setCursor(isOpenable ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void HygProjectCard::setTexts(const QString & heading, const QString & emptyText) {
    m_heading->setText(heading);
    m_list->setAccessibleName(heading);
    m_empty->setText(emptyText);
}

void HygProjectCard::open(const QModelIndex & index) {
    if (m_isOpenable && index.isValid() && !index.data(HygProjectListModel::IsMissingRole).toBool())
        emit openRequested(index.data(HygProjectListModel::PathRole).toString());
}

void HygProjectCard::showMenu(const QPoint & position) {
    const QModelIndex index = m_list->indexAt(position);
    if (!index.isValid())
        return;
    const QString path = index.data(HygProjectListModel::PathRole).toString();
    const bool isMissing = index.data(HygProjectListModel::IsMissingRole).toBool();
    const QString folder = QFileInfo(path).absolutePath();

    QMenu menu(this);
    menu.setObjectName(QStringLiteral("projectMenu"));
    if (m_isOpenable) {
        QAction * openAction = menu.addAction(HygIconEngine::icon(QStringLiteral("open")), tr("Open"), this,
                                              [&] { emit openRequested(path); });
        openAction->setEnabled(!isMissing);
        menu.setDefaultAction(openAction);
    }
    menu.addAction(HygIconEngine::icon(QStringLiteral("folder")), tr("Show folder"), this,
                   [&] { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); })
        ->setEnabled(QFileInfo::exists(folder));
    menu.addAction(HygIconEngine::icon(QStringLiteral("copy")), tr("Copy path"), this,
                   [&] { QGuiApplication::clipboard()->setText(QDir::toNativeSeparators(path)); });
    if (m_kind == Recent) {
        menu.addSeparator();
        menu.addAction(HygIconEngine::icon(QStringLiteral("remove")), tr("Remove from this list"), this,
                       [&] { emit removeRequested(path); });
        menu.addAction(tr("Remove all missing files from this list"), this, &HygProjectCard::removeMissingRequested);
    }
    menu.exec(m_list->viewport()->mapToGlobal(position));
}

void HygProjectCard::updateHeading() {
    QFont headingFont = font();
    headingFont.setPointSizeF(font().pointSizeF() * 1.2);
    headingFont.setWeight(QFont::DemiBold);
    m_heading->setFont(headingFont);
    m_icon->setPixmap(HygIconEngine::icon(QLatin1String(ICONS[m_kind])).pixmap(22, 22));
}

void HygProjectCard::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor edge = palette().color(QPalette::WindowText);
    edge.setAlphaF(0.16);
    painter.setPen(edge);
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 10, 10);
}

void HygProjectCard::changeEvent(QEvent * event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        updateHeading();
}

bool HygProjectCard::eventFilter(QObject * watched, QEvent * event) {
    const QModelIndex current = m_list->currentIndex();
    if (watched == m_list && event->type() == QEvent::KeyPress && current.isValid()) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            open(current);
            return true;
        }
        if (key == Qt::Key_Delete && m_kind == Recent) {
            emit removeRequested(current.data(HygProjectListModel::PathRole).toString());
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}
