// Converts tags of ID3v2.4, whose sizes and texts have other forms, to ID3v2.3.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/**
 * The ID3v2.3 tag (id3.org, "ID3 tag version 2.3.0") that says the same as this tag of ID3v2.4,
 * frame by frame: texts in UTF-8 become ISO-8859-1 where that holds them, else UTF-16; dates become
 * year and day; compressed and unsynchronised frames are unpacked. Padding, an extended header and
 * a footer are left out.
 *
 * Nothing when the tag is damaged, or when a single frame could not be carried over faithfully: one
 * that is encrypted, one that version 3 does not know, a date that it cannot hold.
 */
std::optional<QByteArray> tagOfVersion3(QByteArrayView tagOfVersion4);
