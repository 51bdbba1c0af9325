// Writes sound into a WAV file, which has its name when it is whole and not before.
#pragma once

#include <QFile>
#include <QString>

class WaveFile
{
public:
    /** Removes a file that was not finished. */
    ~WaveFile();
    WaveFile() = default;
    Q_DISABLE_COPY_MOVE(WaveFile)

    /** Begins a file that will have this path; false when none can be made in its folder. */
    bool begin(const QString &path);

    /** Adds frames of two samples each; false when the disk refuses or the file cannot be larger.
     */
    bool add(const qint16 *samples, qsizetype frames);

    /**
     * Brings the file to the medium and gives it its name; what had that name before is replaced.
     * A link stays, and what it leads to is replaced. False when the medium refuses: an old file
     * is as it was then.
     */
    bool finish();

private:
    static QByteArray header(qint64 bytes);

    QFile m_file;
    QString m_target;
    qint64 m_bytes = 0; ///< of the samples
};
