#include "construction/HygHintBar.h"

#include "construction/HygConstructionEditor.h"

#include <QtExt/Palette.h>

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QWidgetAction>
#include <QtConcurrent>

#include <algorithm>
#include <limits>

namespace {

using HYGRION::Assignment;
using Hint = HygConstructionHint;

constexpr int DELAY_MS = 120;
constexpr int SEEN_LINES = 2; ///< the others are scrolled to: the drawing above keeps its place while they come and go
constexpr int MARGIN = 4;
constexpr int GAP = 2;
constexpr int TITLE_WIDTH = 420;      ///< pixels; longer ones are wrapped
constexpr std::size_t MAX_OFFERS = 4; ///< interfaces offered in a line

QString link(const QString & target, std::size_t index, const QString & text) {
    return QStringLiteral("<a href='%1:%2'>%3</a>").arg(target).arg(index).arg(text.toHtmlEscaped());
}

QString line(bool isWarning, const QString & text, const QStringList & links) {
    const QColor sign = QtExt::Palette::color(isWarning ? QtExt::Palette::WARNING_TEXT : QtExt::Palette::MUTED_TEXT);
    return QStringLiteral("<span style='color:%1'>%2</span> %3 &nbsp; %4")
        .arg(sign.name(), isWarning ? QStringLiteral("⚠") : QStringLiteral("•"), text.toHtmlEscaped(),
             links.join(QStringLiteral(" · ")));
}

} // namespace

HygHintBar::HygHintBar(HygConstructionEditor & editor, const HygConstructionScene & scene, QWidget * parent)
    : QScrollArea(parent), m_editor(editor), m_scene(scene), m_list(new QWidget(this)),
      m_layout(new QVBoxLayout(m_list)) {
    setObjectName(QStringLiteral("hintBar"));
    setWidget(m_list);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_layout->setContentsMargins(8, MARGIN, 8, MARGIN);
    m_layout->setSpacing(GAP);
    fixHeight();
    hide();
    m_delay.setSingleShot(true);
    m_delay.setInterval(DELAY_MS);
    connect(&m_delay, &QTimer::timeout, this, &HygHintBar::look);
    connect(&m_search, &QFutureWatcherBase::finished, this, &HygHintBar::takeOver);
}

HygHintBar::~HygHintBar() {
    m_search.waitForFinished();
}

void HygHintBar::sceneChanged(bool isNewProject) {
    m_isOutdated = true;
    if (isNewProject) {
        m_hints.clear();
        showHints();
    }
    m_delay.start();
}

void HygHintBar::look() {
    if (m_isSearching)
        return; // takeOver() begins anew
    m_isOutdated = false;
    m_isSearching = true;
    m_search.setFuture(
        QtConcurrent::run([construction = Hint::snapshot(m_scene)] { return Hint::find(construction); }));
}

void HygHintBar::takeOver() {
    m_isSearching = false;
    if (m_isOutdated) {
        if (!m_delay.isActive())
            look();
        return;
    }
    m_hints = m_search.result();
    showHints();
}

QString HygHintBar::textOf(std::size_t index) const {
    const Hint & hint = m_hints[index];
    const int count = static_cast<int>(std::min<std::uint64_t>(hint.count, std::numeric_limits<int>::max()));
    const QString side = HygConstructionScene::locationName(hint.side);
    switch (hint.kind) {
    case Hint::NoMaterial:
        return hint.isWarning ? tr("%n cells have no material.", nullptr, count)
                              : tr("%n cells have no material; they are open air.", nullptr, count);
    case Hint::UnknownMaterial:
        return tr("%n cells have a material that the project does not define.", nullptr, count);
    case Hint::Overlap:
        return tr("Materials lie upon one another in %n cells; the last assigned counts.", nullptr, count);
    case Hint::NoInterface:
        if (!m_scene.isStack())
            return tr("%1: %n faces to open air without interface.", nullptr, count).arg(side);
        break;
    case Hint::NoFile:
        return tr("Material '%1': %2", "name and what is wrong with its file")
            .arg(QString::fromStdString(hint.name), hint.problem);
    case Hint::NoOutput:
        return tr("No outputs are assigned; a run would leave no results.");
    case Hint::OpenEdge:
        break;
    }
    return tr("%1: no interface, no heat or moisture passes there.").arg(side);
}

std::vector<HygHintBar::Offer> HygHintBar::offers(std::size_t index) const {
    const Hint & hint = m_hints[index];
    std::vector<Offer> list;
    if (!hint.ranges.empty())
        list.push_back({QStringLiteral("show"), tr("show")});
    switch (hint.kind) {
    case Hint::NoOutput:
        list.push_back({QStringLiteral("outputs"), tr("standard outputs")});
        break;
    case Hint::NoMaterial:
        list.push_back({QStringLiteral("choose"), tr("choose a material")});
        break;
    case Hint::UnknownMaterial:
    case Hint::NoFile:
        list.push_back({QStringLiteral("choose"), tr("choose another material")});
        break;
    case Hint::Overlap:
        list.push_back({QStringLiteral("resolve"), tr("cut off what is covered")});
        break;
    case Hint::NoInterface:
    case Hint::OpenEdge: {
        // What is missing on the other side comes first: two clicks at the same place are two different climates.
        using Type = HYGRION::Interface::type_t;
        const auto & interfaces = m_editor.project().m_conditions.m_interfaces;
        const bool hasOutdoor = !interfaces.empty() && interfaces.front().m_type != Type::EngineeringIndoor;
        const Offer outdoor{QStringLiteral("outdoor"), tr("standard outdoor climate")};
        const Offer indoor{QStringLiteral("indoor"), tr("standard indoor climate")};
        if (interfaces.size() < 2)
            list.push_back(hasOutdoor ? indoor : outdoor);
        for (std::size_t n = 0; n < interfaces.size() && n < MAX_OFFERS; ++n)
            list.push_back({QStringLiteral("assign.%1").arg(n), QString::fromStdString(interfaces[n].m_name)});
        if (interfaces.size() < 2)
            list.push_back(hasOutdoor ? outdoor : indoor);
        break;
    }
    }
    return list;
}

QString HygHintBar::lineOf(std::size_t index) const {
    QStringList links;
    for (const Offer & offer : offers(index))
        links << link(offer.target, index, offer.text);
    return line(m_hints[index].isWarning, textOf(index), links);
}

/// All edges of a detail in one line: what is cut out of a building has some of them for good.
QString HygHintBar::lineOfEdges() const {
    QStringList links;
    for (std::size_t n = 0; n < m_hints.size(); ++n)
        if (m_hints[n].kind == Hint::OpenEdge)
            links << link(QStringLiteral("choose"), n, HygConstructionScene::locationName(m_hints[n].side));
    return line(false, tr("Outer edges without interface, where nothing passes:"), links);
}

void HygHintBar::showHints() {
    while (QLayoutItem * item = m_layout->takeAt(0)) {
        if (item->widget() != nullptr) {
            item->widget()->hide();
            item->widget()->deleteLater(); // one of its links may be calling
        }
        delete item;
    }
    std::size_t lines = 0;
    bool hasEdges = false;
    for (std::size_t n = 0; n < m_hints.size(); ++n) {
        const bool isEdge = m_hints[n].kind == Hint::OpenEdge && !m_hints[n].isWarning;
        if (isEdge && std::exchange(hasEdges, true))
            continue;
        auto * label = new QLabel(isEdge ? lineOfEdges() : lineOf(n), m_list);
        label->setObjectName(QStringLiteral("hint%1").arg(n));
        label->setTextFormat(Qt::RichText);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
        label->setFocusPolicy(Qt::StrongFocus);
        connect(label, &QLabel::linkActivated, this, [this](const QString & clicked) {
            follow(clicked.section(QLatin1Char(':'), 0, 0), clicked.section(QLatin1Char(':'), 1).toUInt());
        });
        m_layout->addWidget(label);
        ++lines;
    }
    if (lines == 0) {
        auto * label = new QLabel(line(false, tr("Nothing is missing here."), {}), m_list);
        label->setForegroundRole(QPalette::PlaceholderText);
        m_layout->addWidget(label);
    }
    m_layout->addStretch(1);
    setAccessibleName(tr("What the construction lacks"));
    setVisible(m_scene.project != nullptr && !m_scene.isBlank());
    emit hintsChanged();
}

void HygHintBar::fixHeight() {
    setFixedHeight(SEEN_LINES * (fontMetrics().height() + GAP) + 2 * MARGIN);
}

void HygHintBar::changeEvent(QEvent * event) {
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fixHeight();
    else if (event->type() == QEvent::PaletteChange || event->type() == QEvent::LanguageChange)
        showHints(); // links keep the colour that they were made with
}

void HygHintBar::fillMenu(QMenu & menu, std::size_t index) {
    if (index >= m_hints.size())
        return;
    // A section's title would be cut where the entries are shorter.
    auto * title = new QLabel(textOf(index), &menu);
    title->setObjectName(QStringLiteral("hintTitle"));
    title->setTextFormat(Qt::PlainText);
    title->setWordWrap(true);
    title->setContentsMargins(10, 6, 10, 6);
    QPalette colours = title->palette(); // nothing to choose, but to be read
    colours.setColor(QPalette::Disabled, QPalette::WindowText, colours.color(QPalette::Active, QPalette::WindowText));
    title->setPalette(colours);
    title->setMinimumWidth(std::min(title->fontMetrics().horizontalAdvance(title->text()), TITLE_WIDTH) + 24);
    title->setMaximumWidth(TITLE_WIDTH + 24);
    auto * heading = new QWidgetAction(&menu);
    heading->setDefaultWidget(title);
    heading->setText(title->text());
    heading->setEnabled(false);
    menu.addAction(heading);
    menu.addSeparator();
    for (const Offer & offer : offers(index)) {
        QString text = offer.text;
        connect(menu.addAction(text.replace(QLatin1Char('&'), QStringLiteral("&&"))), &QAction::triggered, this,
                [this, target = offer.target, index] { follow(target, index); });
    }
}

void HygHintBar::follow(const QString & target, std::size_t index) {
    if (index >= m_hints.size())
        return;
    const Hint hint = m_hints[index]; // mending makes others
    if (target == QLatin1String("show"))
        emit showRequested(hint);
    else if (target == QLatin1String("choose"))
        emit chooseRequested(hint);
    else if (target == QLatin1String("resolve"))
        m_editor.resolveOverlaps();
    else if (target == QLatin1String("outputs"))
        m_editor.addStandardOutputs();
    else if (target == QLatin1String("outdoor") || target == QLatin1String("indoor"))
        m_editor.addStandardInterface(target == QLatin1String("outdoor"), hint.ranges, hint.side);
    else if (target.startsWith(QLatin1String("assign."))) {
        const auto & interfaces = m_editor.project().m_conditions.m_interfaces;
        const auto n = static_cast<std::size_t>(target.mid(7).toUInt());
        if (n < interfaces.size())
            m_editor.assign(Assignment::type_t::Interface, std::string(interfaces[n].m_name), hint.ranges, hint.side);
    }
}
