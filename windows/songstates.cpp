#include "windows/songstates.h"

#include "windows/usersongsreltablemodel.h"

#include <QColor>
#include <QPainter>
#include <QPixmap>
#include <QRectF>

#include <iterator>

namespace
{

constexpr qreal signSide = 16; ///< of the square in which the signs are drawn

void paintPencil(QPainter &painter)
{
    const QPointF outline[] = {{2.5, 13.5}, {3.6, 9.6}, {10.6, 2.6}, {13.4, 5.4}, {6.4, 12.4}};
    painter.setBrush(painter.pen().color());
    painter.setPen(QPen(painter.pen().color(), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolygon(outline, static_cast<int>(std::size(outline)));
}

} // namespace

Database::statusEnum SongStates::known(int status)
{
    const bool isKnown = status > Database::StatusNew && status <= Database::StatusNotSynced;
    return isKnown ? static_cast<Database::statusEnum>(status) : Database::StatusNew;
}

QString SongStates::name(Database::statusEnum status)
{
    switch (status) {
    case Database::StatusSynced:
        return tr("sincronizzata");
    case Database::StatusEdited:
        return tr("modificata");
    case Database::StatusNotSynced:
        return tr("non sincronizzata");
    default:
        return tr("nuova");
    }
}

QString SongStates::explanation(Database::statusEnum status)
{
    switch (status) {
    case Database::StatusSynced:
        return tr("Sincronizzata: ha i dati del catalogo");
    case Database::StatusEdited:
        return tr("Modificata: ha i dati che hai scritto tu");
    case Database::StatusNotSynced:
        return tr("Non sincronizzata: non è nel catalogo, o è rimasta com'era");
    default:
        return tr("Nuova: non ancora sincronizzata");
    }
}

void SongStates::paintSign(QPainter &painter, const QRectF &square, Database::statusEnum status,
                           const QColor &colour)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.topLeft());
    painter.scale(square.width() / signSide, square.height() / signSide);
    painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    switch (status) {
    case Database::StatusSynced: {
        const QPointF tick[] = {{3, 8.5}, {6.5, 12}, {13, 4}};
        painter.drawPolyline(tick, static_cast<int>(std::size(tick)));
        break;
    }
    case Database::StatusEdited:
        paintPencil(painter);
        break;
    case Database::StatusNotSynced:
        painter.drawLine(QPointF(4, 4), QPointF(12, 12));
        painter.drawLine(QPointF(12, 4), QPointF(4, 12));
        break;
    default:
        painter.drawEllipse(QPointF(8, 8), 4.5, 4.5);
    }
    painter.restore();
}

QIcon SongStates::icon(Database::statusEnum status)
{
    QIcon icon;
    for (const int scale : {1, 2, 3}) {
        const int side = static_cast<int>(signSide) * scale;
        QPixmap picture(side, side);
        picture.fill(UserSongsRelTableModel::statusColour(status, 0));
        {
            QPainter painter(&picture);
            paintSign(painter, QRectF(0, 0, side, side), status, Qt::black);
        }
        picture.setDevicePixelRatio(scale);
        icon.addPixmap(picture);
    }
    return icon;
}
