#include "materials/HygMaterialDB.h"

#include "HygSettings.h"
#include "document/HygBackground.h"
#include "materials/HygMaterialTexts.h"

#include <MM/Material.h>

#include <KOR/Exception.h>
#include <KOR/Path.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr int CHANGE_MS = 300;
/// User materials begin here, so that they do not meet those that later versions bring.
constexpr unsigned int FIRST_USER_ID = 10'000;

} // namespace

HygMaterialDB::HygMaterialDB(const HygThreadMaterialDBUpdater::Places & places, const QString & language,
                             QObject * parent)
    : QObject(parent), m_places(places), m_updater(places, QCoreApplication::applicationVersion()) {
    m_model.setLanguage(language);
    m_changeTimer.setSingleShot(true);
    m_changeTimer.setInterval(CHANGE_MS);
    connect(&m_changeTimer, &QTimer::timeout, this, &HygMaterialDB::rescan);
    connect(&m_updater, &HygThreadMaterialDBUpdater::updated, this, &HygMaterialDB::takeOver);
    connect(&m_updater, &HygThreadMaterialDBUpdater::progressed, this, &HygMaterialDB::scanChanged);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, [this] { m_changeTimer.start(); });
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, [this](const QString & path) {
        emit fileChanged(path);
        m_changeTimer.start();
    });
}

std::shared_ptr<HygMaterialDB> HygMaterialDB::shared() {
    static std::weak_ptr<HygMaterialDB> theDatabase;
    std::shared_ptr<HygMaterialDB> database = theDatabase.lock();
    if (!database) {
        HygSettings & settings = HygSettings::instance();
        const QString data = settings.directory(HygSettings::DIR_USER_DATA);
        database = std::make_shared<HygMaterialDB>(
            HygThreadMaterialDBUpdater::Places{settings.directory(HygSettings::DIR_MATERIALS),
                                               data + QStringLiteral("/DB_materials"),
                                               data + QStringLiteral("/DB_materials.cache")},
            HygMaterialTexts::language());
        database->setFavourites(settings.m_favouriteMaterials);
        connect(database.get(), &HygMaterialDB::favouritesChanged, database.get(), [db = database.get()] {
            HygSettings::instance().m_favouriteMaterials = db->favourites();
            HygSettings::instance().writeOrLog();
        });
        theDatabase = database;
    }
    return database;
}

QStringList HygMaterialDB::problems() const {
    const HygMaterialDBScanPtr scan = m_updater.result();
    return scan ? QStringList(scan->problems.begin(), scan->problems.end()) : QStringList();
}

void HygMaterialDB::start() {
    if (!std::exchange(m_isStarted, true))
        rescan();
}

void HygMaterialDB::rescan() {
    m_updater.update();
    emit scanChanged();
}

void HygMaterialDB::takeOver() {
    m_model.setScan(m_updater.result());
    watch();
    emit scanChanged();
}

void HygMaterialDB::watch() {
    // Directories tell of files that come, go or are replaced; a file of the user's may also be changed in its place.
    QStringList wanted;
    for (const QString & directory : {m_places.builtIn, m_places.user})
        if (QFileInfo(directory).isDir())
            wanted << directory;
    for (int row = 0; row < m_model.rowCount(); ++row)
        if (const HygMaterialDBEntry & entry = m_model.entry(row); entry.origin == HygMaterialDBEntry::User)
            wanted << entry.path;
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    const std::set<QString> before(watched.begin(), watched.end());
    QStringList added;
    std::copy_if(wanted.begin(), wanted.end(), std::back_inserter(added),
                 [&](const QString & path) { return before.count(path) == 0; });
    if (!added.isEmpty())
        m_watcher.addPaths(added);
}

bool HygMaterialDB::isBuiltIn(const QString & path) const {
    const QString directory = QFileInfo(m_places.builtIn).canonicalFilePath();
    return !directory.isEmpty() && QFileInfo(path).canonicalPath() == directory;
}

void HygMaterialDB::setFavourites(const QStringList & fileNames) {
    if (fileNames == m_favourites)
        return;
    m_favourites = fileNames;
    m_model.setFavourites(m_favourites);
    emit favouritesChanged();
}

void HygMaterialDB::setFavourite(const QString & path, bool isFavourite) {
    const int row = m_model.rowOf(path);
    if (row < 0)
        return;
    QStringList favourites = m_favourites;
    const QString name = HygMaterialDBTableModel::favouriteName(m_model.entry(row));
    favourites.removeAll(name);
    if (isFavourite)
        favourites << name;
    setFavourites(favourites);
}

unsigned int HygMaterialDB::freeId() const {
    std::set<unsigned int> taken;
    for (int row = 0; row < m_model.rowCount(); ++row)
        taken.insert(m_model.entry(row).id);
    // What has been written since the last scan counts too.
    const QStringList files = QDir(m_places.user).entryList(HygThreadMaterialDBUpdater::nameFilters(), QDir::Files);
    for (const QString & file : files)
        taken.insert(MM::Material::idFromPath(file.toStdString()).value_or(0));
    unsigned int id = FIRST_USER_ID;
    while (taken.count(id) > 0)
        ++id;
    return id;
}

QString HygMaterialDB::newPath(const QString & name, unsigned int id) const {
    static const QRegularExpression OTHERS(QStringLiteral("[^A-Za-z0-9]+"));
    QString stem = name.normalized(QString::NormalizationForm_KD).left(60).toLower();
    stem.remove(QRegularExpression(QStringLiteral("[\\x{0300}-\\x{036f}]"))).replace(OTHERS, QStringLiteral("_"));
    while (stem.startsWith(QLatin1Char('_')))
        stem.remove(0, 1);
    while (stem.endsWith(QLatin1Char('_')))
        stem.chop(1);
    if (stem.isEmpty())
        stem = QStringLiteral("material");
    return m_places.user + QStringLiteral("/%1_%2.m6").arg(stem).arg(id);
}

QString HygMaterialDB::copyEnding(int number, bool isGerman) {
    const QString word = isGerman ? QStringLiteral("Kopie") : QStringLiteral("copy");
    return number == 1 ? QStringLiteral(" (%1)").arg(word) : QStringLiteral(" (%1 %2)").arg(word).arg(number);
}

QString HygMaterialDB::copyToUser(const QString & path) {
    struct Copy {
        std::string written;
        std::vector<QString> names;
    };
    const auto copy = std::make_shared<Copy>();
    const QString stem = QFileInfo(path).completeBaseName().remove(QRegularExpression(QStringLiteral("_\\d+$")));
    const unsigned int id = freeId();
    std::set<QString> taken = m_copied;
    for (int row = 0; row < m_model.rowCount(); ++row)
        for (const auto & [language, text] : m_model.entry(row).name.texts())
            taken.insert(QString::fromStdString(text));
    const auto work = [copy, path, id, taken, directory = m_places.user, target = newPath(stem, id)] {
        static const QRegularExpression ENDING(QStringLiteral(" \\((copy|Kopie)( \\d+)?\\)$"));
        MM::Material material;
        material.read(path.toStdString());
        material.m_id = id;
        KOR::LangString & name = material.m_identification.m_name;
        const auto texts = name.texts();
        // Names that nobody could tell apart would be mistaken for one another.
        for (int number = 1; copy->names.empty(); ++number) {
            for (const auto & [language, text] : texts)
                copy->names.push_back(QString::fromStdString(text).remove(ENDING) +
                                      copyEnding(number, language == "de"));
            if (std::any_of(copy->names.begin(), copy->names.end(),
                            [&](const QString & made) { return taken.count(made) > 0; }))
                copy->names.clear();
            else if (copy->names.empty())
                break;
        }
        std::size_t i = 0;
        for (const auto & [language, text] : texts)
            name.set(language, copy->names[i++].toStdString());
        KOR::Path(directory.toStdString()).makePath();
        copy->written = material.write(target.toStdString());
    };
    try {
        HygBackground::run(tr("Copying the material"), work);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Cannot copy material '%1'.", path.toStdString()),
                             "[HygMaterialDB::copyToUser]");
    }
    m_copied.insert(copy->names.begin(), copy->names.end());
    rescan();
    return QString::fromStdString(copy->written);
}
