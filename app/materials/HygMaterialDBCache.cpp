#include "materials/HygMaterialDBCache.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QDataStream>
#include <QFileInfo>

namespace {

constexpr quint32 MAGIC = 0x48364d43; // "H6MC"
constexpr quint32 FORMAT = 1;
constexpr quint32 MAX_ENTRIES = 1'000'000;
constexpr std::size_t MAX_SIZE = 256u << 20;

QDataStream & operator<<(QDataStream & stream, const KOR::LangString & text) {
    return stream << QByteArray::fromStdString(text.toString());
}

QDataStream & operator>>(QDataStream & stream, KOR::LangString & text) {
    QByteArray line;
    stream >> line;
    text = KOR::LangString(line.toStdString());
    return stream;
}

/// Lets \p field see each member that is stored, in the order of the file.
template <typename Entry, typename Field> void forEachField(Entry & entry, const Field & field) {
    field(entry.path);
    field(entry.size);
    field(entry.modified);
    field(entry.changed);
    field(entry.id);
    field(entry.name);
    field(entry.producer);
    for (auto & category : entry.categories)
        field(category);
    for (auto & value : entry.values)
        field(value);
    field(entry.color);
    field(entry.hatching);
    field(entry.problem);
}

} // namespace

void HygMaterialDBCache::take(const std::vector<HygMaterialDBEntry> & entries) {
    m_entries.clear();
    m_entries.reserve(entries.size());
    for (const HygMaterialDBEntry & entry : entries)
        m_entries.emplace(entry.path, entry);
}

void HygMaterialDBCache::read() {
    m_entries.clear();
    if (!QFileInfo::exists(m_file))
        return;
    QByteArray content;
    try {
        content = QByteArray::fromStdString(KOR::readFile(m_file.toStdString(), MAX_SIZE));
    } catch (const KOR::Exception & ex) {
        KOR::message(ex.what(), KOR::MSG_WARNING, "[HygMaterialDBCache::read]");
        return;
    }
    // The check sum stands before the data, so that nothing is believed of a file that was cut or changed.
    QDataStream stream(content);
    stream.setVersion(QDataStream::Qt_5_15);
    quint32 magic = 0;
    quint32 format = 0;
    quint16 sum = 0;
    stream >> magic >> format >> sum;
    const int headSize = static_cast<int>(2 * sizeof(quint32) + sizeof(quint16));
    if (magic != MAGIC || format != FORMAT || content.size() < headSize ||
        sum != qChecksum(content.constData() + headSize, static_cast<uint>(content.size() - headSize)))
        return;
    QString version;
    quint32 count = 0;
    stream >> version >> count;
    if (version != m_version || count > MAX_ENTRIES)
        return;
    std::vector<HygMaterialDBEntry> entries;
    while (count-- > 0 && stream.status() == QDataStream::Ok)
        forEachField(entries.emplace_back(), [&](auto & value) { stream >> value; });
    if (stream.status() == QDataStream::Ok)
        take(entries);
}

void HygMaterialDBCache::write(const std::vector<HygMaterialDBEntry> & entries) {
    take(entries);
    QByteArray data;
    {
        QDataStream stream(&data, QIODevice::WriteOnly);
        stream.setVersion(QDataStream::Qt_5_15);
        stream << m_version << static_cast<quint32>(entries.size());
        for (const HygMaterialDBEntry & entry : entries)
            forEachField(entry, [&](const auto & value) { stream << value; });
    }
    QByteArray head;
    QDataStream(&head, QIODevice::WriteOnly)
        << MAGIC << FORMAT << qChecksum(data.constData(), static_cast<uint>(data.size()));
    try {
        KOR::writeFile(m_file.toStdString(), (head + data).toStdString());
    } catch (const KOR::Exception & ex) {
        KOR::message(ex.what(), KOR::MSG_WARNING, "[HygMaterialDBCache::write]");
    }
}

const HygMaterialDBEntry * HygMaterialDBCache::find(const HygMaterialDBEntry & file) const {
    const auto found = m_entries.find(file.path);
    return found != m_entries.end() && found->second.isSameFile(file) ? &found->second : nullptr;
}
