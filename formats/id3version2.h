// Tags of ID3v2.2, the version with frame names of three letters, brought into the form of today.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/**
 * The frames of an ID3v2.3 tag (id3.org, "ID3 tag version 2.3.0") that say the same as these frames
 * of an ID3v2.2 tag ("ID3 tag version 2.2.0"); padding is left out, and so is a frame that has no
 * successor of the same layout. Old and new frames cannot stand in one tag: no reader would get
 * past the first of the other kind. Nothing for frames that run past the end and for bytes that are
 * no frame.
 */
std::optional<QByteArray> framesOfVersion3(QByteArrayView framesOfVersion2);
