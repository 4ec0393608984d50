#pragma once

#include "songs/edits.h"

#include <optional>

class SongsOnDisk;

// The columns of the list of songs, in their order.
enum class SongColumn { Number, Title, Author, Tags, Category, Left, Right, Recording, Midi, Playlists };
inline constexpr int songColumns = 10;

QString nameOf(SongColumn column);

// What can be edited in that column; nothing where the list only shows.
std::optional<Field> fieldOf(SongColumn column);

// The number of the song's category; 0 for none, and for a text that names none.
int categoryOf(int n);
// The category's name, else its number, else nothing.
QString shownCategory(int n);

// What stands in a cell. What is there or not is a tick or nothing.
QString textOf(SongColumn column, int n, const SongsOnDisk &disk);
// What numbers and ticks are sorted by; 0 in a column of texts.
int rankOf(SongColumn column, int n, const SongsOnDisk &disk);
bool isText(SongColumn column);
bool isTick(SongColumn column);
