#include <QtExt/Settings.h>

#include <KOR/ArgParser.h>
#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace QtExt {

namespace {

Settings * currentSettings = nullptr;

/// The arrays of remembered answers, and the most entries that are read from them.
constexpr const char * CHECKED_ARRAY = "DoNotShowAgainDialogs";
constexpr const char * ANSWER_ARRAY = "DoNotShowAgainDialogsAnswer";
constexpr int MAX_REMEMBERED = 1000;

/// The store keeps colours as text, so that its file can be read by people.
QVariant stored(const Settings::Target & target) {
    return std::visit(
        [](const auto * member) -> QVariant {
            if constexpr (std::is_same_v<std::decay_t<decltype(*member)>, QColor>)
                return member->name(member->alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
            else
                return *member;
        },
        target);
}

template <typename Number> bool assignNumber(Number & member, const QVariant & value, double min, double max) {
    bool ok = false;
    const double number = value.toDouble(&ok); // toDouble of QVariant reads with the C locale
    if (!ok || !std::isfinite(number))
        return false;
    member = static_cast<Number>(std::clamp(number, min, max));
    return true;
}

bool assignBool(bool & member, const QVariant & value) {
    const QString text = value.toString();
    const bool isTrue = text == QLatin1String("true") || text == QLatin1String("1");
    if (!isTrue && text != QLatin1String("false") && text != QLatin1String("0"))
        return false;
    member = isTrue;
    return true;
}

bool assign(const Settings::Row & row, const QVariant & value) {
    return std::visit(
        [&](auto * member) {
            using Type = std::decay_t<decltype(*member)>;
            if constexpr (std::is_same_v<Type, bool>) {
                return assignBool(*member, value);
            } else if constexpr (std::is_arithmetic_v<Type>) {
                return assignNumber(*member, value, row.min, row.max);
            } else if constexpr (std::is_same_v<Type, QColor>) {
                const QColor color = value.value<QColor>();
                if (color.isValid())
                    *member = color;
                return color.isValid();
            } else {
                *member = value.value<Type>();
                return true;
            }
        },
        row.target);
}

/// QSettings waits 30 s for a lock that holds no process number; such a lock is what a killed process leaves.
/// Whether the process of a well-formed lock still lives is found out by QSettings itself.
void removeStaleLock(const QString & path) {
    const auto hasOwner = [&path] {
        QFile lock(path);
        return !lock.exists() || (lock.open(QIODevice::ReadOnly) && lock.readLine(64).trimmed().toLongLong() > 0);
    };
    if (hasOwner())
        return;
    QThread::msleep(50); // another process may be about to write its number
    if (!hasOwner())
        QFile::remove(path);
}

/// Calls \p entry for each entry of an array, at most MAX_REMEMBERED times, whatever size the file claims.
template <typename Entry> void readArray(QSettings & store, const char * name, Entry entry) {
    const int size = std::min(store.beginReadArray(QLatin1String(name)), MAX_REMEMBERED);
    for (int i = 0; i < size; ++i) {
        store.setArrayIndex(i);
        const QString id = store.value(QStringLiteral("DialogID")).toString();
        if (!id.isEmpty())
            entry(id);
    }
    store.endArray();
}

} // namespace

Settings::Settings(const QString & organisation, const QString & application)
    : m_organisation(organisation), m_application(application), m_previous(currentSettings) {
    currentSettings = this;
    bind("LastProjectFile", &m_lastProjectFile, QString());
    bind("RecentProjects", &m_recentProjects, QStringList());
    bind("MaxRecentProjects", &m_maxRecentProjects, 10, 0, 100);
    bind("MaxNumUndoSteps", &m_maxNumUndoSteps, 100, 1, 10000);
    bind("TextEditorExecutable", &m_textEditorExecutable, QString());
    bind("LangID", &m_langId, QString());
    bind("UserLogLevelConsole", &m_userLogLevelConsole, 1, 0, 4);
    bind("UserLogLevelLogfile", &m_userLogLevelLogfile, 3, 0, 4);
    bind("DontUseNativeDialogs", &m_dontUseNativeDialogs, false);
    bind("Theme", &m_theme, QStringLiteral("system"));
    for (const Row & row : m_rows)
        assign(row, row.defaultValue);
#ifndef Q_OS_WIN
    removeStaleLock(storePath() + QStringLiteral(".lock"));
#endif
}

Settings::~Settings() {
    if (currentSettings == this)
        currentSettings = m_previous;
}

Settings & Settings::instance() {
    if (currentSettings == nullptr)
        throw KOR::Exception("No settings object exists.", "[Settings::instance]");
    return *currentSettings;
}

void Settings::bind(const QString & key, Target target, const QVariant & defaultValue, double min, double max) {
    m_rows.push_back({key, target, defaultValue, min, max});
}

void Settings::bindText(const QString & key, const QString & english, const QString & german) {
    m_defaultTexts[key + QStringLiteral("_EN")] = english;
    m_defaultTexts[key + QStringLiteral("_DE")] = german;
}

void Settings::setDefaults() {
    for (const Row & row : m_rows)
        assign(row, defaultValue(row.key));
    m_texts = m_defaultTexts;
    m_rememberedAnswers.clear();
}

QString Settings::storePath() const {
    return QSettings(m_organisation, m_application).fileName();
}

void Settings::read() {
    QSettings store(m_organisation, m_application);
    store.setFallbacksEnabled(false);
    for (const Row & row : m_rows)
        if (store.contains(row.key))
            assign(row, store.value(row.key));
    for (auto text = m_texts.begin(); text != m_texts.end(); ++text)
        text.value() = store.value(text.key(), text.value()).toString();
    readArray(store, CHECKED_ARRAY, [&](const QString & id) {
        m_rememberedAnswers[id].checked = store.value(QStringLiteral("Checked")).toBool();
    });
    readArray(store, ANSWER_ARRAY, [&](const QString & id) {
        m_rememberedAnswers[id].answer = store.value(QStringLiteral("Answer")).toInt();
    });
    tidyRecentProjects();
}

void Settings::write() const {
    QSettings store(m_organisation, m_application);
    store.setFallbacksEnabled(false);
    for (const Row & row : m_rows)
        store.setValue(row.key, stored(row.target));
    for (auto text = m_texts.cbegin(); text != m_texts.cend(); ++text)
        store.setValue(text.key(), text.value());
    const auto writeArray = [&](const char * name, const QString & column, auto member) {
        store.remove(QLatin1String(name)); // entries of an earlier, longer list
        store.beginWriteArray(QLatin1String(name), m_rememberedAnswers.size());
        int i = 0;
        for (auto entry = m_rememberedAnswers.cbegin(); entry != m_rememberedAnswers.cend(); ++entry) {
            store.setArrayIndex(i++);
            store.setValue(QStringLiteral("DialogID"), entry.key());
            store.setValue(column, entry.value().*member);
        }
        store.endArray();
    };
    writeArray(CHECKED_ARRAY, QStringLiteral("Checked"), &RememberedAnswer::checked);
    writeArray(ANSWER_ARRAY, QStringLiteral("Answer"), &RememberedAnswer::answer);
    store.sync();
    if (store.status() != QSettings::NoError)
        throw KOR::Exception(KOR::text("Cannot write settings to '%1'.", store.fileName().toStdString()),
                             "[Settings::write]");
}

void Settings::writeOrLog() const noexcept {
    try {
        write();
    } catch (const KOR::Exception & ex) {
        ex.report();
    }
}

const Settings::Row * Settings::find(const QString & key) const {
    const auto row = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row & r) { return r.key == key; });
    return row == m_rows.end() ? nullptr : &*row;
}

QVariant Settings::value(const QString & key) const {
    const Row * row = find(key);
    return row == nullptr ? QVariant() : std::visit([](const auto * m) { return QVariant(*m); }, row->target);
}

QVariant Settings::defaultValue(const QString & key) const {
    const Row * row = find(key);
    return row == nullptr ? QVariant() : row->defaultValue;
}

bool Settings::setValue(const QString & key, const QVariant & value) {
    const Row * row = find(key);
    const bool isTaken = row != nullptr && assign(*row, value);
    tidyRecentProjects();
    return isTaken;
}

void Settings::addRecentProject(const QString & path) {
    m_lastProjectFile = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    m_recentProjects.prepend(m_lastProjectFile);
    tidyRecentProjects();
}

void Settings::removeRecentProject(const QString & path) {
    m_recentProjects.removeAll(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
}

void Settings::tidyRecentProjects() {
    m_recentProjects.removeAll(QString());
    m_recentProjects.removeDuplicates(); // keeps the first, the newest
    m_recentProjects = m_recentProjects.mid(0, static_cast<int>(m_maxRecentProjects));
}

QString Settings::textOf(const QString & key) const {
    const QString own = m_texts.value(key + '_' + langId().toUpper());
    return own.isEmpty() ? m_texts.value(key + QStringLiteral("_EN")) : own;
}

int Settings::rememberedAnswer(const QString & dialogId) const {
    const RememberedAnswer answer = m_rememberedAnswers.value(dialogId);
    return answer.checked ? answer.answer : 0;
}

void Settings::rememberAnswer(const QString & dialogId, int answer) {
    m_rememberedAnswers[dialogId] = {true, answer};
}

void Settings::addOptions(KOR::ArgParser & parser) {
    parser.addFlag(0, "no-splash", "Disables splash screen.");
    parser.addOption(0, "lang", "Specify the program language using a 2 character language ID.", "en;de;it;...", "en");
}

void Settings::applyCommandLine(const KOR::ArgParser & parser) {
    m_noSplash = parser.flag("no-splash");
    if (parser.hasOption("lang"))
        setLangIdOfRun(QString::fromStdString(parser.option("lang")));
    if (parser.args().size() > 1)
        m_initialProjectFile = QString::fromStdString(parser.args()[1]);
}

} // namespace QtExt
