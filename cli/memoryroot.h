// The memory that an argument names.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

class Terminal;

/**
 * The root of a memory: a folder on a mounted memory stands for the memory, any other is taken for
 * one itself. Nothing, after the terminal named the failure, when it is no folder.
 */
std::optional<QString> memoryRootOf(const QByteArray &argument, Terminal &terminal);
