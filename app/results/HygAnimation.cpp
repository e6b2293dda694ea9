#include "HygAnimation.h"

#include "HygResultChart.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

namespace {

constexpr int RATE = 20;     ///< frames a second
constexpr int GIF_DELAY = 5; ///< [1/100 s]
constexpr const char * FILM_MAKER = "ffmpeg";
constexpr const char * GIF_MAKER = "convert";

bool hasProgram(const char * name) {
    return !QStandardPaths::findExecutable(QLatin1String(name)).isEmpty();
}

} // namespace

QStringList HygAnimation::formats() {
    QStringList patterns{QStringLiteral("*.png")};
    if (hasProgram(FILM_MAKER))
        patterns << QStringLiteral("*.webm");
    if (hasProgram(FILM_MAKER) || hasProgram(GIF_MAKER))
        patterns << QStringLiteral("*.gif");
    return patterns;
}

HygAnimation::HygAnimation(HygResultChart & chart, QString path, const QSize & size, int frames, QObject * parent)
    : QObject(parent), m_chart(chart), m_path(std::move(path)), m_size(size),
      m_count(std::min(frames, static_cast<int>(chart.timeCount()))), m_timeBefore(chart.time(chart.timeIndex())),
      m_timer(new QTimer(this)) {
    const QFileInfo target(m_path);
    m_folder = target.path();
    m_prefix = target.completeBaseName() + '_';
    if (target.suffix() != QLatin1String("png")) {
        m_temporary = std::make_unique<QTemporaryDir>();
        m_folder = m_temporary->path();
        m_prefix = QStringLiteral("frame_");
    }
    connect(m_timer, &QTimer::timeout, this, &HygAnimation::writeFrame);
    m_timer->start(0);
}

HygAnimation::~HygAnimation() {
    stop();
}

QString HygAnimation::framePath(int frame) const {
    return QStringLiteral("%1/%2%3.png").arg(m_folder, m_prefix).arg(frame, 5, 10, QChar('0'));
}

void HygAnimation::stop() {
    if (m_timer->isActive()) {
        m_timer->stop();
        m_chart.setTime(m_timeBefore);
    }
    if (m_encoder != nullptr && m_encoder->state() != QProcess::NotRunning) {
        m_encoder->disconnect(this);
        m_encoder->kill();
        m_encoder->waitForFinished(1000);
        QFile::remove(m_path);
    }
}

void HygAnimation::writeFrame() {
    const std::size_t last = m_chart.timeCount() - 1;
    const std::size_t index =
        m_count < 2 ? 0 : static_cast<std::size_t>(m_frame) * last / static_cast<std::size_t>(m_count - 1);
    m_chart.setTime(m_chart.time(index));
    if (m_count == 0 || !m_chart.image(m_size).save(framePath(m_frame))) {
        m_timer->stop();
        m_chart.setTime(m_timeBefore);
        emit finished(m_count == 0 ? tr("There are no time points.")
                                   : tr("Cannot write the picture '%1'.").arg(framePath(m_frame)));
        return;
    }
    emit progressed(++m_frame);
    if (m_frame < m_count)
        return;
    m_timer->stop();
    m_chart.setTime(m_timeBefore);
    if (m_temporary)
        encode();
    else
        emit finished({});
}

void HygAnimation::encode() {
    const QString frames = m_folder + '/' + m_prefix + "%05d.png";
    m_encoder = new QProcess(this);
    m_encoder->setProcessChannelMode(QProcess::MergedChannels);
    connect(m_encoder, &QProcess::errorOccurred, this,
            [this] { emit finished(tr("The film could not be made: %1").arg(m_encoder->errorString())); });
    connect(m_encoder, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this, [this](int code) {
        const QString told = QString::fromUtf8(m_encoder->readAll()).trimmed().section('\n', -1);
        emit finished(code == 0 ? QString() : tr("The film could not be made: %1").arg(told));
    });
    if (hasProgram(FILM_MAKER)) {
        QStringList arguments{"-y", "-loglevel", "error", "-framerate", QString::number(RATE), "-i", frames};
        // The 256 colours of a gif are to be those of the pictures.
        if (m_path.endsWith(QLatin1String(".gif"), Qt::CaseInsensitive))
            arguments << "-vf"
                      << "split[a][b];[a]palettegen[p];[b][p]paletteuse=dither=none";
        m_encoder->start(QLatin1String(FILM_MAKER), arguments << m_path);
    } else {
        m_encoder->start(QLatin1String(GIF_MAKER), {"-delay", QString::number(GIF_DELAY), "-loop", "0",
                                                    QStringLiteral("%1[0-%2]").arg(frames).arg(m_count - 1), m_path});
    }
}
