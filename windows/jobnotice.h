// Tells the user of a long job's end when he has turned to another program.
#pragma once

#include <QObject>
#include <QString>

/** Waits for the first dialog after the job, whose text says how it went, or for tell(). */
class JobNotice : public QObject
{
    Q_OBJECT

public:
    /** A long job, or a part of it, has ended. */
    static void expect(const QString &title);

    /** The job is over without a dialog. */
    static void tell();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit JobNotice(const QString &title);

    void notify(const QString &title, const QString &text);

    const QString m_title;
};
