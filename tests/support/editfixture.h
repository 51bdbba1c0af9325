// A library and edits by hand with answers handed in, for their tests.
#pragma once

#include "library/songeditor.h"
#include "support/librarytable.h"
#include "support/recordedprogress.h"
#include "support/songbytes.h"

namespace editfixture
{

inline constexpr int isNew = Database::StatusNew;
inline constexpr int isEdited = Database::StatusEdited;

/** A MIDI file that holds one of each: title, artist, genre, author and a marker. */
inline QByteArray fullMidi(const QByteArray &name)
{
    using namespace songbytes;
    return midiFile(
        {track(metaEvent(0x03, name + " title") + kravoEvent(2, name + " artist") +
               kravoEvent(1, name + " genre") + kravoEvent(3, name + " author") +
               kravoEvent(4, "100") + kravoEvent(5, "120") + markerEvent(7, "Coda") + notes())});
}

/** An editor with every question answered from here. */
struct Editing {
    explicit Editing(LibraryTable &library)
        : editor(
              library.model(),
              [this](const SongInfo &info) {
                  shown.append(info);
                  return answer ? answer(info) : std::nullopt;
              },
              [this] {
                  ++deleteQuestions;
                  return deleteAnswer;
              },
              recordedBy(progress))
    {
    }

    /** Answers with the shown song, changed by the function. */
    void changeTo(std::function<void(SongEdit &)> change)
    {
        answer = [change](const SongInfo &info) {
            SongEdit edit;
            edit.info = info;
            change(edit);
            return std::optional<SongEdit>(edit);
        };
    }

    std::function<std::optional<SongEdit>(const SongInfo &)> answer; ///< unset: cancelled
    QList<SongInfo> shown;
    bool deleteAnswer = false;
    int deleteQuestions = 0;
    ProgressRecord progress;
    SongEditor editor;
};

} // namespace editfixture
