// Keeps links readable in palettes that have no link colour of their own.
#pragma once

#include <QColor>
#include <QObject>

/** The contrast of two colours: 1 for equal ones, 21 for black and white. */
double contrast(const QColor &first, const QColor &second);

/**
 * As long as it lives, the application's palette has link colours with a contrast of at least 4.5
 * to windows and pages: a dark palette often comes with the dark blue of a light one. Qt takes the
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
