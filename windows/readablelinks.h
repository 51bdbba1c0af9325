// Keeps links readable in palettes that have no link colour of their own.
#pragma once

#include <QColor>
#include <QObject>

/** How far two colours stand out from each other: 1 for the same ones, 21 for black and white. */
double contrast(const QColor &first, const QColor &second);

/**
 * As long as it lives, the application's palette has link colours that stand out from windows and
 * pages by 4.5 at least: a dark palette often comes with the dark blue of a light one. Qt takes the
 * colour when a text is set, so texts that are shown when the palette changes keep theirs.
 */
class ReadableLinks : public QObject
{
public:
    explicit ReadableLinks(QObject *parent);

    /** Looks at each new palette of the application. */
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static void adjustPalette();
};
