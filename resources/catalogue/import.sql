-- Fills the table Songs from songs.tsv; run by sqlite3 in this folder, after schema.sql.

-- A line with a missing or surplus cell is refused; the import itself would only warn.
create temp table lines (line text check (length(line) - length(replace(line, char(9), '')) = 9));
.mode ascii
.separator "\001" "\n"
.import songs.tsv lines

-- "ascii" takes cells as they stand: quotes mean nothing, blanks are kept.
create temp table cells (title, artist, genre, author, length, bpm, key, filename, markers, altartist);
.separator "\t" "\n"
.import --skip 1 --schema temp songs.tsv cells

insert into Songs
select title, artist, genre, author, length, bpm, key, filename, nullif(markers, 'NULL'), altartist
from cells;
