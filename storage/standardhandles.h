// The file handles of standard input, output and error.
#pragma once

/**
 * Fills those with which the program was not started, so that no song that is opened later gets
 * such a number: what is written to standard error would go into it. Reading and writing fail as
 * before. To be called before the program opens a file.
 */
void fillStandardHandles();
