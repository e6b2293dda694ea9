#pragma once

#include <QObject>
#include <QSize>
#include <QTemporaryDir>

#include <memory>

class HygResultChart;
class QProcess;
class QTimer;

/// Writes the pictures of a chart over time: a sequence of PNG files, or a film where a program that makes one is
/// installed. Works between the events of the user interface and can be stopped at any time.
class HygAnimation : public QObject {
    Q_OBJECT
public:
    /// File patterns that can be written here, "*.png" always among them.
    static QStringList formats();

    /// \param path "name.png" writes name_00000.png and so on, "name.webm" and "name.gif" a film
    /// \param frames at most; of more time points some are left out
    HygAnimation(HygResultChart & chart, QString path, const QSize & size, int frames, QObject * parent = nullptr);
    ~HygAnimation() override;

    int frameCount() const { return m_count; }
    /// Removes what has been written of a film; pictures stay.
    void stop();

signals:
    void progressed(int frame);
    /// \param problem empty if all went well
    void finished(const QString & problem);

private:
    void writeFrame();
    void encode();
    QString framePath(int frame) const;

    HygResultChart & m_chart;
    QString m_path;
    QSize m_size;
    int m_count;
    int m_frame = 0;
    QString m_folder; ///< of the pictures
    QString m_prefix;
    std::unique_ptr<QTemporaryDir> m_temporary;
    double m_timeBefore; ///< [s] that the chart showed
    QTimer * m_timer;
    QProcess * m_encoder = nullptr;
};
