#include "HygStartView.h"

#include "HygIconEngine.h"
#include "HygProjectCard.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QLabel>
#include <QListView>
#include <QPushButton>

namespace {

constexpr int PAGE_WIDTH = 1120;
constexpr int LOGO = 72;

} // namespace

HygStartView::HygStartView(QWidget * parent)
    : QWidget(parent), m_logo(new QLabel(this)), m_title(new QLabel(this)), m_subtitle(new QLabel(this)),
      m_new(new QPushButton(this)), m_open(new QPushButton(this)),
      m_recent(new HygProjectCard(HygProjectCard::Recent, this)),
      m_examples(new HygProjectCard(HygProjectCard::Examples, this)) {
    m_new->setObjectName(QStringLiteral("startNew"));
    m_new->setIcon(HygIconEngine::icon(QStringLiteral("new")));
    m_open->setObjectName(QStringLiteral("startOpen"));
    m_open->setIcon(HygIconEngine::icon(QStringLiteral("open")));
    for (QPushButton * button : {m_new, m_open}) {
        button->setIconSize({24, 24});
        button->setMinimumSize(170, 44);
        button->setAutoDefault(true);
    }
    m_logo->setPixmap(QIcon(QStringLiteral(":/gfx/hygrion_icon_black_256x256.png")).pixmap(LOGO, LOGO));
    m_subtitle->setForegroundRole(QPalette::PlaceholderText);

    auto * names = new QVBoxLayout;
    names->setSpacing(2);
    names->addStretch(1);
    names->addWidget(m_title);
    names->addWidget(m_subtitle);
    names->addStretch(1);
    auto * header = new QHBoxLayout;
    header->setSpacing(18);
    header->addWidget(m_logo);
    header->addLayout(names, 1);
    header->addWidget(m_new);
    header->addWidget(m_open);
    auto * cards = new QHBoxLayout;
    cards->setSpacing(18);
    cards->addWidget(m_recent, 3);
    cards->addWidget(m_examples, 2);

    auto * page = new QWidget(this);
    page->setMaximumWidth(PAGE_WIDTH);
    auto * pageLayout = new QVBoxLayout(page);
    pageLayout->setContentsMargins(0, 0, 0, 0);
    pageLayout->setSpacing(24);
    pageLayout->addLayout(header);
    pageLayout->addLayout(cards, 1);
    auto * layout = new QHBoxLayout(this);
    layout->setContentsMargins(32, 28, 32, 24);
    layout->addStretch(1);
    layout->addWidget(page, 100);
    layout->addStretch(1);

    connect(m_new, &QPushButton::clicked, this, &HygStartView::newProjectRequested);
    connect(m_open, &QPushButton::clicked, this, &HygStartView::chooseProjectRequested);
    for (HygProjectCard * card : {m_recent, m_examples})
        connect(card, &HygProjectCard::openRequested, this, &HygStartView::openProjectRequested);
    connect(m_recent, &HygProjectCard::removeRequested, this, &HygStartView::removeRecentRequested);
    connect(m_recent, &HygProjectCard::removeMissingRequested, this, &HygStartView::removeMissingRequested);
    setTabOrder(m_new, m_open);
    setTabOrder(m_open, &m_recent->list());
    setTabOrder(&m_recent->list(), &m_examples->list());
    setOffers(false, false);
    updateFonts();
    retranslate();
}

void HygStartView::setRecentProjects(const QStringList & paths) {
    m_recent->setFiles(paths);
}

void HygStartView::setExamplesDirectory(const QString & directory) {
    QStringList paths;
    const QFileInfoList files =
        QDir(directory).entryInfoList({QStringLiteral("*.h6p")}, QDir::Files | QDir::Readable, QDir::Name);
    for (const QFileInfo & file : files)
        paths << file.absoluteFilePath();
    m_examples->setFiles(paths);
}

void HygStartView::setOffers(bool canCreate, bool canOpen) {
    m_new->setVisible(canCreate);
    m_open->setVisible(canOpen);
    m_recent->setOpenable(canOpen);
    m_examples->setOpenable(canOpen);
}

void HygStartView::updateFonts() {
    QFont titleFont = font();
    titleFont.setPointSizeF(font().pointSizeF() * 2.2);
    titleFont.setWeight(QFont::Bold);
    m_title->setFont(titleFont);
    QFont subtitleFont = font();
    subtitleFont.setPointSizeF(font().pointSizeF() * 1.15);
    m_subtitle->setFont(subtitleFont);
}

void HygStartView::retranslate() {
    m_title->setText(QCoreApplication::applicationName());
    m_subtitle->setText(tr("Heat and moisture in building components"));
    m_new->setText(tr("&New project"));
    m_new->setToolTip(tr("Start a new project"));
    m_open->setText(tr("&Open project…"));
    m_open->setToolTip(tr("Open a project file"));
    m_recent->setTexts(tr("Recent projects"), tr("Projects that you work on will be listed here, the newest first."));
    m_examples->setTexts(tr("Examples"), tr("No example projects are installed."));
}

void HygStartView::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::FontChange)
        updateFonts();
}
