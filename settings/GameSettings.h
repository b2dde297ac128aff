#pragma once

#include <QLocale>

// The start-up reading of the stored options and halls of fame. Sets Common::EasyRecords,
// MediumRecords and HardRecords, always five rows each, and Common::Level (0 to 2: a stored
// Custom level or any value outside the presets starts on Easy), and returns whether sound is
// on. When the stored Easy table does not hold exactly five rows, all three tables are reset
// to the rows "Player1" to "Player5" with the time "999", and the file is saved at once.
// Medium and Hard tables of another size are filled up with such rows or cut to five.
// A file that cannot be read gives these defaults and is never written over in this run.
// A damaged file keeps what could be read of it; saved, it holds only the sections "Game",
// "Easy", "Medium" and "Hard", and its original is kept as "Velkaro.ini.damaged".
bool ReadSettings();

// The shutdown writing: the three tables, the sound switch in the words of the system locale
// and Common::Level, saved in one atomic step. A file that cannot be written stays as it was,
// as does one that ReadSettings could not read.
void WriteSettings(bool soundOn);
// The same, with the Boolean words of the given locale: "Vero" and "Falso" for Italian, "True"
// and "False" for any other language.
void WriteSettings(bool soundOn, const QLocale &locale);
