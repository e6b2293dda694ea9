#include "construction/HygConstructionHints.h"

#include "construction/HygConstructionEditor.h"

#include <HYGRION/Discretization.h>
#include <QtExt/Palette.h>

#include <KOR/Exception.h>

#include <QBoxLayout>
#include <QLabel>

#include <algorithm>

namespace {

using HYGRION::Assignment;
using HYGRION::Range;
using location_t = Assignment::location_t;
using Hint = HygConstructionHint;

constexpr std::size_t MAX_BLOCKS = 500; ///< of one hint
constexpr std::size_t MAX_LINES = 4;
constexpr std::size_t MAX_OFFERS = 4; ///< interfaces offered in a line

struct Side {
    location_t side;
    location_t opposite;
    int di;
    int dj;
};
constexpr Side SIDES[] = {
    {location_t::Left,   location_t::Right,  -1, 0 },
    {location_t::Right,  location_t::Left,   1,  0 },
    {location_t::Bottom, location_t::Top,    0,  -1},
    {location_t::Top,    location_t::Bottom, 0,  1 }
};

std::uint32_t bit(location_t side) {
    return 1U << (static_cast<unsigned int>(side) - 1);
}

/// Adds a cell to the last block if it goes on there along the surface.
void append(Hint & hint, std::uint32_t i, std::uint32_t j, std::uint32_t plane) {
    ++hint.count;
    if (!hint.ranges.empty()) {
        Range & last = hint.ranges.back();
        if (last.bottom == j && last.top == j && last.right + 1 == i) {
            last.right = i;
            return;
        }
        if (last.left == i && last.right == i && last.top + 1 == j) {
            last.top = j;
            return;
        }
    }
    if (hint.ranges.size() < MAX_BLOCKS)
        hint.ranges.push_back({i, j, plane, i, j, plane});
}

/// Surfaces of materials without an interface: beside cells without material, and at the ends of a stack. At the edges of
/// a detail, where it is cut out of the building, nothing need pass.
void findSurfaces(const HygConstructionScene & scene, std::vector<Hint> & hints) {
    const HygCellPlane & cells = scene.cells;
    HYGRION::BoundaryIDGrid interfaces;
    HYGRION::Discretization::updateBoundaryIDGrid(cells.nx(), cells.ny(), scene.project->m_disc.nz(),
                                                  scene.project->m_assignments, interfaces);
    const auto nx = static_cast<std::ptrdiff_t>(cells.nx());
    const auto ny = static_cast<std::ptrdiff_t>(cells.ny());
    for (const Side & side : SIDES) {
        if (scene.isStack() && side.dj != 0)
            continue; // the ends of a stack are sections through the wall
        Hint open{Hint::NoInterface, true, {}, side.side, 0};
        const auto look = [&](std::ptrdiff_t i, std::ptrdiff_t j) {
            const auto column = static_cast<std::uint32_t>(i);
            const auto row = static_cast<std::uint32_t>(j);
            if (cells.material(column, row) == HygCellPlane::NO_MATERIAL ||
                (interfaces.at(column, row, scene.plane) & bit(side.side)) != 0)
                return;
            const std::ptrdiff_t besideI = i + side.di;
            const std::ptrdiff_t besideJ = j + side.dj;
            if (besideI < 0 || besideJ < 0 || besideI >= nx || besideJ >= ny) {
                if (scene.isStack())
                    append(open, column, row, scene.plane);
                return;
            }
            const auto otherColumn = static_cast<std::size_t>(besideI);
            const auto otherRow = static_cast<std::size_t>(besideJ);
            if (cells.material(otherColumn, otherRow) == HygCellPlane::NO_MATERIAL &&
                (interfaces.at(otherColumn, otherRow, scene.plane) & bit(side.opposite)) == 0)
                append(open, column, row, scene.plane);
        };
        // Along the surface, so that neighbours become one block.
        if (side.di != 0)
            for (std::ptrdiff_t i = 0; i < nx; ++i)
                for (std::ptrdiff_t j = 0; j < ny; ++j)
                    look(i, j);
        else
            for (std::ptrdiff_t j = 0; j < ny; ++j)
                for (std::ptrdiff_t i = 0; i < nx; ++i)
                    look(i, j);
        if (open.count > 0)
            hints.push_back(std::move(open));
    }
}

} // namespace

std::vector<HygConstructionHint> HygConstructionHint::find(const HygConstructionScene & scene) {
    std::vector<Hint> hints;
    if (scene.project == nullptr || scene.isBlank())
        return hints;
    for (const auto & [kind, material] :
         {std::pair(UnknownMaterial, HygCellPlane::UNKNOWN), std::pair(NoMaterial, HygCellPlane::NO_MATERIAL)}) {
        Hint hint{kind, true, scene.cells.blocksOf(material, MAX_BLOCKS), location_t::Element, 0};
        for (std::size_t j = 0; j < scene.cells.ny(); ++j)
            hint.count += static_cast<std::uint64_t>(
                std::count(scene.cells.row(j), scene.cells.row(j) + scene.cells.nx(), material));
        // In a detail air is what is left without material.
        hint.isWarning =
            kind == UnknownMaterial || scene.isStack() || hint.count == scene.cells.nx() * scene.cells.ny();
        if (hint.count > 0)
            hints.push_back(std::move(hint));
    }
    if (!scene.cells.overlaps().empty()) {
        Hint hint{Overlap, true, {}, location_t::Element, 0};
        for (const HygCellPlane::Overlap & overlap : scene.cells.overlaps()) {
            hint.count += overlap.cells;
            Range range;
            if (hint.ranges.size() < MAX_BLOCKS &&
                scene.showsIn(scene.project->m_assignments.m_list[overlap.assignment], range))
                hint.ranges.push_back(range);
        }
        hints.push_back(std::move(hint));
    }
    try {
        findSurfaces(scene, hints);
    } catch (const KOR::Exception &) {
        // A grid too large for the table of surfaces; the check of the project tells of that.
    }
    std::stable_partition(hints.begin(), hints.end(), [](const Hint & hint) { return hint.isWarning; });
    return hints;
}

HygHintBar::HygHintBar(HygConstructionEditor & editor, QWidget * parent)
    : QFrame(parent), m_editor(editor), m_layout(new QVBoxLayout(this)) {
    setObjectName(QStringLiteral("hintBar"));
    m_layout->setContentsMargins(8, 4, 8, 4);
    m_layout->setSpacing(2);
    setAccessibleName(tr("What the construction lacks"));
    hide();
}

QString HygHintBar::lineOf(const HygConstructionScene & scene, std::size_t index) const {
    const Hint & hint = m_hints[index];
    const auto link = [index](const QString & target, const QString & text) {
        return QStringLiteral("<a href='%1:%2'>%3</a>").arg(target).arg(index).arg(text.toHtmlEscaped());
    };
    const int count = static_cast<int>(std::min<std::uint64_t>(hint.count, 1'000'000'000));
    const QString side = HygConstructionScene::locationName(hint.side);
    QStringList links{link(QStringLiteral("show"), tr("show"))};
    QString text;
    switch (hint.kind) {
    case Hint::NoMaterial:
        text = hint.isWarning ? tr("%n cells have no material.", nullptr, count)
                              : tr("%n cells have no material; they are open air.", nullptr, count);
        links << link(QStringLiteral("choose"), tr("choose a material"));
        break;
    case Hint::UnknownMaterial:
        text = tr("%n cells have a material that the project does not define.", nullptr, count);
        links << link(QStringLiteral("choose"), tr("choose another material"));
        break;
    case Hint::Overlap:
        text = tr("Materials lie upon one another in %n cells; the last assigned counts.", nullptr, count);
        links << link(QStringLiteral("resolve"), tr("cut off what is covered"));
        break;
    case Hint::NoInterface: {
        text = scene.isStack() ? tr("%1: no interface, no heat or moisture passes there.").arg(side)
                               : tr("%1: %n faces to open air without interface.", nullptr, count).arg(side);
        const auto & interfaces = scene.project->m_conditions.m_interfaces;
        for (std::size_t n = 0; n < interfaces.size() && n < MAX_OFFERS; ++n)
            links << link(QStringLiteral("assign.%1").arg(n), QString::fromStdString(interfaces[n].m_name));
        if (interfaces.size() < 2) {
            links << link(QStringLiteral("outdoor"), tr("standard outdoor climate"));
            links << link(QStringLiteral("indoor"), tr("standard indoor climate"));
        }
        break;
    }
    }
    const QColor sign =
        QtExt::Palette::color(hint.isWarning ? QtExt::Palette::WARNING_TEXT : QtExt::Palette::MUTED_TEXT);
    return QStringLiteral("<span style='color:%1'>%2</span> %3 &nbsp; %4")
        .arg(sign.name(), hint.isWarning ? QStringLiteral("⚠") : QStringLiteral("•"), text.toHtmlEscaped(),
             links.join(QStringLiteral(" · ")));
}

void HygHintBar::setHints(const HygConstructionScene & scene, std::vector<HygConstructionHint> hints) {
    m_hints = std::move(hints);
    while (QLayoutItem * item = m_layout->takeAt(0)) {
        item->widget()->deleteLater(); // one of its links may be calling
        delete item;
    }
    // What is only to be known stands in view when nothing is wrong.
    std::size_t lines = 0;
    for (std::size_t n = 0; n < m_hints.size() && lines < MAX_LINES; ++n) {
        if (!m_hints[n].isWarning && lines > 0)
            continue;
        auto * label = new QLabel(lineOf(scene, n), this);
        label->setObjectName(QStringLiteral("hint%1").arg(n));
        label->setTextFormat(Qt::RichText);
        label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
        label->setFocusPolicy(Qt::StrongFocus);
        connect(label, &QLabel::linkActivated, this, &HygHintBar::follow);
        m_layout->addWidget(label);
        ++lines;
    }
    setVisible(lines > 0);
}

void HygHintBar::follow(const QString & link) {
    const QString target = link.section(QLatin1Char(':'), 0, 0);
    const auto index = static_cast<std::size_t>(link.section(QLatin1Char(':'), 1).toUInt());
    if (index >= m_hints.size())
        return;
    const Hint hint = m_hints[index]; // mending makes others
    if (target == QLatin1String("show"))
        emit showRequested(hint);
    else if (target == QLatin1String("choose"))
        emit chooseRequested(hint);
    else if (target == QLatin1String("resolve"))
        m_editor.resolveOverlaps();
    else if (target == QLatin1String("outdoor") || target == QLatin1String("indoor"))
        m_editor.addStandardInterface(target == QLatin1String("outdoor"), hint.ranges, hint.side);
    else if (target.startsWith(QLatin1String("assign."))) {
        const auto & interfaces = m_editor.project().m_conditions.m_interfaces;
        const auto n = static_cast<std::size_t>(target.mid(7).toUInt());
        if (n < interfaces.size())
            m_editor.assign(Assignment::type_t::Interface, std::string(interfaces[n].m_name), hint.ranges, hint.side);
    }
}
