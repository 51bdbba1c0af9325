// What the user sees of the state of a song in the list: its name, what it means and its sign.
#pragma once

#include "library/database.h"

#include <QCoreApplication>
#include <QIcon>
#include <QString>

QT_BEGIN_NAMESPACE
class QColor;
class QPainter;
class QRectF;
QT_END_NAMESPACE

/** The signs differ in their shapes, so that nobody has to tell the colours apart. */
class SongStates
{
    Q_DECLARE_TR_FUNCTIONS(SongStates)

public:
    /** The state that a row's number stands for; any number that is none is a new song. */
    static Database::statusEnum known(int status);

    /** The state in a word or two, as it stands behind a song's format: "sincronizzata". */
    static QString name(Database::statusEnum status);

    /** The state and what it means, in one sentence. */
    static QString explanation(Database::statusEnum status);

    /** Paints the sign into a square: ring, tick, pencil or cross. */
    static void paintSign(QPainter &painter, const QRectF &square, Database::statusEnum status,
                          const QColor &colour);

    /** The sign on the colour that the rows of this state have. */
    static QIcon icon(Database::statusEnum status);
};
