#include "HygResultScale.h"

#include <KOR/Exception.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <QThreadPool>

#include <algorithm>
#include <cmath>

namespace {

constexpr quint64 READ_AT_ONCE = 1 << 20; ///< [bytes] smaller files are read without another thread
constexpr quint64 MAX_SAMPLED = 4 << 20;  ///< [bytes]
constexpr quint64 MIN_SAMPLES = 3;        ///< first, middle and last
constexpr quint64 MAX_SAMPLES = 12;

} // namespace

HygResultScale::HygResultScale(QObject * parent) : QObject(parent) {}

HygResultScale::~HygResultScale() {
    ++*m_generation;
}

void HygResultScale::clear() {
    ++*m_generation;
    m_pending = 0;
    m_known.clear();
    for (SCI::Range & seen : m_seen)
        seen = HygResultFile::NOTHING_SEEN;
}

void HygResultScale::include(double value, bool isRight) {
    if (!std::isfinite(value))
        return;
    SCI::Range & seen = m_seen[isRight ? 1 : 0];
    seen.from = std::min(seen.from, value);
    seen.to = std::max(seen.to, value);
}

void HygResultScale::sample(HygResultFile & file, bool isAmount) {
    if (!m_known.insert(file.path() + (isAmount ? "?amount" : "?sample")).second)
        return;
    const quint64 wanted = std::clamp(MAX_SAMPLED / file.recordSize(), MIN_SAMPLES, MAX_SAMPLES);
    const std::size_t count = file.timeCount(), samples = std::min<std::size_t>(count, wanted);
    for (std::size_t s = 0; s < samples; ++s)
        for (const double value : file.values(samples == 1 ? 0 : s * (count - 1) / (samples - 1)))
            include(isAmount ? std::abs(value) : value);
}

void HygResultScale::scan(const HygResultFile & file, const QString & humidity, KOR::Unit unit, bool isRight) {
    const QString path = file.path();
    if (!m_known.insert(path + '\n' + humidity + '\n' + QString::fromStdString(unit.name())).second)
        return;
    const auto take = [this, isRight](const SCI::Range & range) {
        include(range.from, isRight);
        include(range.to, isRight);
    };
    if (static_cast<quint64>(QFileInfo(path).size()) <= READ_AT_ONCE)
        return take(HygResultFile::readRange(path, humidity, unit, {}));
    ++m_pending;
    const QPointer<HygResultScale> self(this);
    QThreadPool::globalInstance()->start([self, take, current = m_generation, generation = m_generation->load(), path,
                                          humidity, unit] {
        const SCI::Range range =
            HygResultFile::readRange(path, humidity, unit, [&current, generation] { return *current != generation; });
        QMetaObject::invokeMethod(QCoreApplication::instance(), [self, take, generation, range] {
            if (self == nullptr || generation != *self->m_generation)
                return;
            --self->m_pending;
            take(range);
            emit self->scanned();
        });
    });
}
