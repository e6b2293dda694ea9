#include "construction/HygMaterialOffer.h"

#include "construction/HygHatching.h"
#include "materials/HygMaterialDB.h"
#include "materials/HygMaterialTexts.h"
#include "materials/HygProjectMaterials.h"

#include <QDir>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>

#include <algorithm>
#include <set>

namespace {

// By MM::MaterialIdentification::HatchingType, [m]; the sizes in which these materials are sold or laid.
constexpr double USUAL_THICKNESS[] = {0.5,   0.3,   0.1,   0.2,  0.2,   0.24,  0.12,
                                      0.024, 0.002, 0.015, 0.16, 0.001, 0.005, 0.1};

constexpr QRgb NO_COLOUR = 0xc8c8c8;

} // namespace

HygMaterialOffer::HygMaterialOffer(QObject * parent) : QObject(parent), m_database(HygMaterialDB::shared()) {
    // The database has taken the result over by then, since it was connected first.
    connect(&m_database->updater(), &HygThreadMaterialDBUpdater::updated, this, &HygMaterialOffer::changed);
    connect(m_database.get(), &HygMaterialDB::assignRequested, this, &HygMaterialOffer::assignRequested);
}

void HygMaterialOffer::start() {
    m_database->start();
}

void HygMaterialOffer::retranslate() {
    m_database->setLanguage(HygMaterialTexts::language());
}

HygMaterialOffer::~HygMaterialOffer() = default;

std::vector<HygMaterialOffer::Entry> HygMaterialOffer::entries(const HYGRION::Project & project) const {
    std::vector<Entry> entries;
    std::set<std::string> names;
    std::set<QString> files; // a material of the project may have got another name there
    for (const HYGRION::MaterialReference & material : project.m_materials) {
        entries.push_back({material, true, {}});
        names.insert(material.m_name);
        files.insert(QDir::cleanPath(HygProjectMaterials::file(project, material)));
    }
    const auto own = static_cast<std::ptrdiff_t>(entries.size());
    const KOR::Path::Placeholders placeholders = project.placeholders();
    const HygMaterialDBTableModel & model = m_database->model();
    for (int row = 0; row < model.rowCount(); ++row) {
        const HygMaterialDBEntry & found = model.entry(row);
        Entry entry;
        entry.reference.m_name = model.name(row).toStdString();
        if (!found.isReadable() || files.count(QDir::cleanPath(found.path)) > 0 ||
            !names.insert(entry.reference.m_name).second)
            continue;
        entry.reference.m_color = KOR::Color::fromRgb(found.color == 0 ? NO_COLOUR : found.color & 0xffffffU);
        entry.reference.m_hatchCode =
            found.hatching < 0 ? static_cast<int>(std::size(USUAL_THICKNESS)) - 1 : found.hatching;
        entry.reference.m_filename = KOR::Path(found.path.toStdString()).withPlaceholder(placeholders);
        entry.category = model.index(row, HygMaterialDBTableModel::CategoryColumn).data().toString();
        entries.push_back(std::move(entry));
    }
    std::sort(entries.begin() + own, entries.end(), [](const Entry & a, const Entry & b) {
        return QString::localeAwareCompare(QString::fromStdString(a.reference.m_name),
                                           QString::fromStdString(b.reference.m_name)) < 0;
    });
    return entries;
}

QIcon HygMaterialOffer::swatch(const HYGRION::MaterialReference & material) {
    constexpr int SIZE = 16;
    const QColor colour(material.m_color.rgb());
    const QString key = QStringLiteral("HygSwatch/%1/%2").arg(colour.name()).arg(material.m_hatchCode);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap(2 * SIZE, 2 * SIZE);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QBrush(HygHatching::tile(colour, material.m_hatchCode, 1)));
        painter.setPen(QPen(colour.darker(150), 2));
        painter.drawRoundedRect(QRectF(1, 1, 2 * SIZE - 2, 2 * SIZE - 2), 6, 6);
        painter.end();
        pixmap.setDevicePixelRatio(2);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

double HygMaterialOffer::usualThickness(int hatchCode) {
    const bool isKnown = hatchCode >= 0 && hatchCode < static_cast<int>(std::size(USUAL_THICKNESS));
    return isKnown ? USUAL_THICKNESS[hatchCode] : USUAL_THICKNESS[std::size(USUAL_THICKNESS) - 1];
}
