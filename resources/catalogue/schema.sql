-- The reference catalogue: one row for each published song.
--
-- All texts are upper case and fit ISO 8859-1, which is what song files can hold: letters of that
-- set keep their accents, all others lose them (Fučík is FUCÍK). An apostrophe that only opens a
-- title is left out, so that O SOLE MIO is found as people write it.
--
-- The performer is one whose historical recording or staging made the song known, otherwise the
-- composer, otherwise TRADIZIONALE.
create table Songs (
    title     varchar, -- never empty; several songs can share one
    artist    varchar, -- performer, persons with the surname first, joined by " - "
    genre     varchar, -- one of about twenty names, or empty
    author    varchar, -- composers and lyricists, joined by " - "
    length    integer, -- seconds, 32 to 631
    bpm       integer, -- beats per minute, 45 to 240
    key       varchar, -- tonic, "#" or "b", and " -" for a minor key; or empty
    filename  varchar primary key, -- base name of the song file: 1 to 8 characters
    markers   varchar, -- sections as "bar;text;bar;text;", or NULL
    altartist varchar -- performer as displayed, persons with the given name first
);
