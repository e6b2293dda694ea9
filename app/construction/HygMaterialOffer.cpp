#include "construction/HygMaterialOffer.h"

#include "construction/HygHatching.h"
#include "materials/HygMaterialDB.h"
#include "materials/HygMaterialTexts.h"
#include "materials/HygProjectMaterials.h"

#include <MM/MaterialCategory.h>

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>

#include <algorithm>
#include <compare>
#include <map>
#include <set>

namespace {

// By MM::MaterialIdentification::HatchingType, [m]; the sizes in which these materials are sold or laid.
constexpr double USUAL_THICKNESS[] = {0.5,   0.3,   0.1,   0.2,  0.2,   0.24,  0.12,
                                      0.024, 0.002, 0.015, 0.16, 0.001, 0.005, 0.1};

constexpr QRgb NO_COLOUR = 0xc8c8c8;

} // namespace

HygMaterialOffer::HygMaterialOffer(QObject * parent) : QObject(parent), m_database(HygMaterialDB::shared()) {
    connect(&m_database->updater(), &HygThreadMaterialDBUpdater::updated, this, [this] { m_canonical.clear(); });
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

const QString & HygMaterialOffer::canonical(const QString & path) const {
    QString & name = m_canonical[path];
    if (name.isEmpty())
        name = QFileInfo(path).canonicalFilePath();
    if (name.isEmpty())
        name = QDir::cleanPath(path);
    return name;
}

std::vector<HygMaterialOffer::Entry> HygMaterialOffer::entries(const HYGRION::Project & project) const {
    std::vector<Entry> entries;
    std::set<std::string> names;
    std::set<QString> files; // a material of the project may have got another name there
    for (const HYGRION::MaterialReference & material : project.m_materials) {
        entries.push_back({material, true, {}});
        names.insert(material.m_name);
        files.insert(canonical(HygProjectMaterials::file(project, material)));
    }
    const auto own = static_cast<std::ptrdiff_t>(entries.size());
    const KOR::Path::Placeholders placeholders = project.placeholders();
    const HygMaterialDBTableModel & model = m_database->model();
    std::map<QString, int> count;
    std::vector<int> rows;
    for (int row = 0; row < model.rowCount(); ++row)
        if (model.entry(row).isReadable() && files.insert(canonical(model.entry(row).path)).second) {
            ++count[model.name(row)];
            rows.push_back(row);
        }
    for (const int row : rows) {
        const HygMaterialDBEntry & found = model.entry(row);
        Entry entry;
        QString name = model.name(row);
        if (count[name] > 1 || names.count(name.toStdString()) > 0)
            name += QStringLiteral(" (%1)").arg(found.id);
        for (int n = 2; !names.insert(name.toStdString()).second; ++n)
            name = QStringLiteral("%1 (%2 %3)").arg(model.name(row)).arg(found.id).arg(n);
        entry.reference.m_name = name.toStdString();
        entry.reference.m_color = KOR::Color::fromRgb(found.color == 0 ? NO_COLOUR : found.color & 0xffffffU);
        entry.reference.m_hatchCode =
            found.hatching < 0 ? static_cast<int>(std::size(USUAL_THICKNESS)) - 1 : found.hatching;
        entry.reference.m_filename = KOR::Path(found.path.toStdString()).withPlaceholder(placeholders);
        entry.category = model.index(row, HygMaterialDBTableModel::CategoryColumn).data().toString();
        entry.isSpecial = found.categories[0] == static_cast<quint8>(MM::MaterialCategory::CategoryID::MISC);
        entries.push_back(std::move(entry));
    }
    std::sort(entries.begin() + own, entries.end(), [](const Entry & a, const Entry & b) {
        if (a.isSpecial != b.isSpecial)
            return b.isSpecial;
        return QString::localeAwareCompare(QString::fromStdString(a.reference.m_name),
                                           QString::fromStdString(b.reference.m_name)) < 0;
    });
    return entries;
}

std::vector<std::size_t> HygMaterialOffer::find(const std::vector<Entry> & entries, const QString & search) {
    const QStringList words = search.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    /// Compared in the order of the members.
    struct Found {
        bool isSpecial;
        bool isOfDatabase;
        int rank;
        int length;
        std::size_t index;
        auto operator<=>(const Found &) const = default;
    };
    std::vector<Found> found;
    for (std::size_t n = 0; n < entries.size(); ++n) {
        const QString name = QString::fromStdString(entries[n].reference.m_name);
        int rank = 0;
        bool isFound = true;
        for (const QString & word : words) {
            const int at = name.indexOf(word, 0, Qt::CaseInsensitive);
            if (at < 0 && !entries[n].category.contains(word, Qt::CaseInsensitive))
                isFound = false;
            rank += at == 0 ? 0 : at < 0 ? 3 : name.contains(QLatin1Char(' ') + word, Qt::CaseInsensitive) ? 1 : 2;
        }
        if (isFound)
            found.push_back(
                {entries[n].isSpecial, !entries[n].isInProject, rank, words.isEmpty() ? 0 : name.size(), n});
    }
    if (!words.isEmpty())
        std::sort(found.begin(), found.end());
    std::vector<std::size_t> numbers;
    for (const Found & one : found)
        numbers.push_back(one.index);
    return numbers;
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
