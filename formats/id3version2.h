// Converts tags of ID3v2.2, the version with frame names of three letters, to ID3v2.3.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/**
 * The frames of an ID3v2.3 tag (id3.org, "ID3 tag version 2.3.0") with the same content as these
 * frames of an ID3v2.2 tag ("ID3 tag version 2.2.0"); padding is left out, and so is a frame that
 * has no successor of the same layout. Old and new frames cannot stand in one tag: a reader stops
 * at the first frame of the other version. Nothing when a frame runs past the end or when bytes are
 * no frame.
 */
std::optional<QByteArray> framesOfVersion3(QByteArrayView framesOfVersion2);

/** True when framesOfVersion3() carries a frame of this identifier, of three letters, over. */
bool hasSuccessor(QByteArrayView id);
