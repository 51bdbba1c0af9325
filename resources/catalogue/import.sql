-- Fills the table Songs from songs.tsv; run by sqlite3 in this folder, after schema.sql.

-- .import only warns of a line with a missing or surplus cell; the failing insert stops the build.
create temp table lines (line text);
create temp table checks (cells integer check (cells = 10));
.mode ascii
.separator "\001" "\n"
.import songs.tsv lines
insert into checks select length(line) - length(replace(line, char(9), '')) + 1 from lines;

-- "ascii" takes cells as they stand: quotes mean nothing, blanks are kept.
create temp table cells (title, artist, genre, author, length, bpm, key, filename, markers, altartist);
.separator "\t" "\n"
.import --skip 1 --schema temp songs.tsv cells

insert into Songs
select title, artist, genre, author, length, bpm, key, filename, nullif(markers, 'NULL'), altartist
from cells;
