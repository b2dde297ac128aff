#pragma once

#include "RecordTable.h"

#include <QString>

// Program-wide state shared by the window, the dialogs and the settings: the parameters
// of the field to build, the language, and the hall of fame held in memory.
namespace Common {

inline constexpr int LevelEasy = 0;
inline constexpr int LevelMedium = 1;
inline constexpr int LevelHard = 2;
inline constexpr int LevelCustom = 3;

inline int FieldX = 9;        // columns, 7 to 49
inline int FieldY = 9;        // rows, 7 to 49
inline int Bombs = 10;        // bombs of the next field built
inline int NumCells = 0;      // FieldX * FieldY of the field on screen, 0 before the first build
inline int Level = LevelEasy; // any value other than the three presets means Custom
inline int TimeLimit = 300;   // countdown length; a custom field keeps the last preset's
inline bool LangEnglish = false;
inline QString PlayerName = QStringLiteral("Anonymous");

inline RecordTable EasyRecords;
inline RecordTable MediumRecords;
inline RecordTable HardRecords;

} // namespace Common
