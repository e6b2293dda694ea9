#include "materials/HygThreadMaterialDBUpdater.h"

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>
#include <KOR/Path.h>

#include <QDir>
#include <QElapsedTimer>

#include <algorithm>

namespace {

constexpr const char * FETCH = "[HygThreadMaterialDBUpdater::fetch]";
constexpr const char * STORE = "[HygThreadMaterialDBUpdater::store]";
constexpr int PROGRESS_MS = 50;

} // namespace

HygThreadMaterialDBUpdater::HygThreadMaterialDBUpdater(Places places, QString version, QObject * parent)
    : QThread(parent), m_places(std::move(places)), m_cache(m_places.cache, std::move(version)) {
    connect(this, &QThread::finished, this, &HygThreadMaterialDBUpdater::finish);
}

HygThreadMaterialDBUpdater::~HygThreadMaterialDBUpdater() {
    cancel();
    wait();
}

const QStringList & HygThreadMaterialDBUpdater::nameFilters() {
    static const QStringList FILTERS{QStringLiteral("*.m6b"), QStringLiteral("*.m6"), QStringLiteral("*.mat")};
    return FILTERS;
}

void HygThreadMaterialDBUpdater::update() {
    if (isRunning()) {
        m_isWanted = true;
        return;
    }
    m_isWanted = false;
    m_isCancelled = false;
    m_done = 0;
    m_total = 0;
    start(QThread::LowPriority);
}

void HygThreadMaterialDBUpdater::finish() {
    emit updated();
    if (m_isWanted)
        update();
}

HygMaterialDBScanPtr HygThreadMaterialDBUpdater::result() const {
    const std::scoped_lock lock(m_mutex);
    return m_result;
}

void HygThreadMaterialDBUpdater::run() {
    HygMaterialDBScanPtr scan = fetch();
    const std::scoped_lock lock(m_mutex);
    m_result = std::move(scan);
}

void HygThreadMaterialDBUpdater::problem(HygMaterialDBScan & scan, const std::string & text) {
    KOR::message(text, KOR::MSG_ERROR, FETCH);
    scan.problems.push_back(QString::fromStdString(text));
}

std::shared_ptr<HygMaterialDBScan> HygThreadMaterialDBUpdater::fetch() {
    if (!m_isCacheRead)
        m_cache.read();
    m_isCacheRead = true;

    auto scan = std::make_shared<HygMaterialDBScan>();
    if (QDir(m_places.builtIn).exists())
        list(m_places.builtIn, HygMaterialDBEntry::BuiltIn, *scan);
    else
        problem(*scan, KOR::text("Cannot access built-in material database '%1'", m_places.builtIn.toStdString()));
    try {
        KOR::Path(m_places.user.toStdString()).makePath();
        list(m_places.user, HygMaterialDBEntry::User, *scan);
    } catch (const KOR::Exception & ex) {
        ex.report();
        problem(*scan, KOR::text("User material data directory '%1' does not exist and cannot be created (permission "
                                 "denied?).",
                                 m_places.user.toStdString()));
    }

    m_total = static_cast<int>(scan->entries.size());
    QElapsedTimer sinceProgress;
    sinceProgress.start();
    std::vector<HygMaterialDBEntry> found;
    found.reserve(scan->entries.size());
    for (HygMaterialDBEntry & entry : scan->entries) {
        scan->isComplete = !m_isCancelled;
        if (!scan->isComplete)
            break;
        if (store(entry, *scan))
            found.push_back(std::move(entry));
        ++m_done;
        if (sinceProgress.elapsed() >= PROGRESS_MS) {
            emit progressed();
            sinceProgress.start();
        }
    }
    const bool isChanged = scan->numRead > 0 || found.size() != m_cache.size();
    scan->entries = std::move(found);
    if (scan->isComplete && isChanged)
        m_cache.write(scan->entries);
    return scan;
}

void HygThreadMaterialDBUpdater::list(const QString & directory, HygMaterialDBEntry::origin_t origin,
                                      HygMaterialDBScan & scan) {
    const QFileInfo info(directory);
    if (!info.isReadable() || !info.isExecutable()) {
        problem(scan, KOR::text("Cannot read material directory '%1' (permission denied?).", directory.toStdString()));
        return;
    }
    const QFileInfoList files = QDir(directory).entryInfoList(nameFilters(), QDir::Files | QDir::System, QDir::Name);
    const auto first = static_cast<std::ptrdiff_t>(scan.entries.size());
    for (const QFileInfo & file : files)
        scan.entries.push_back(HygMaterialDBEntry::ofFile(file.absoluteFilePath(), origin));
    std::sort(scan.entries.begin() + first, scan.entries.end(),
              [](const HygMaterialDBEntry & a, const HygMaterialDBEntry & b) { return a.path < b.path; });
}

bool HygThreadMaterialDBUpdater::store(HygMaterialDBEntry & entry, HygMaterialDBScan & scan) {
    const std::string path = entry.path.toStdString();
    if (const HygMaterialDBEntry * known = m_cache.find(entry)) {
        const HygMaterialDBEntry::origin_t origin = entry.origin;
        entry = *known;
        entry.origin = origin;
        if (!entry.isReadable() && m_reported.insert(entry.path).second)
            KOR::message(KOR::text("Error reading material data file '%1'", path), KOR::MSG_ERROR, STORE);
        return true;
    }
    ++scan.numRead;
    try {
        entry.readMaterial();
    } catch (const KOR::Exception & ex) {
        const qint64 size = HygMaterialDBEntry::ofFile(entry.path, entry.origin).size;
        if (size < 0)
            return false; // gone since the directory was listed
        KOR::Exception(ex, KOR::text("Error reading material data file '%1'", path), STORE).report();
        m_reported.insert(entry.path);
        const std::string & cause = ex.cause();
        entry.problem = cause.empty() ? QString::fromUtf8(ex.what()) : QString::fromStdString(cause);
    }
    return true;
}
