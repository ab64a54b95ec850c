#pragma once
// The commands of an editing surface. Menus and toolbars keep tables of these numbers.

namespace mrd::ui::command {

inline constexpr int kBold = 5000, kCopy = 5002, kCut = 5003, kDelete = 5004, kDeleteCells = 5005, kDeleteColumns = 5006,
                     kDeleteRows = 5007, kFindText = 5008, kFont = 5009, kGetBackColour = 5010, kGetBlockFormat = 5011,
                     kGetBlockFormatNames = 5012, kGetFontName = 5013, kGetFontSize = 5014, kGetForeColour = 5015,
                     kHyperlink = 5016, kPicture = 5017, kIndent = 5018, kInsertCell = 5019, kInsertColumn = 5020,
                     kInsertRow = 5021, kInsertTable = 5022, kItalic = 5023, kCentre = 5024, kLeft = 5025, kRight = 5026,
                     kLockElement = 5027, kAbsolutePosition = 5028, kMergeCells = 5029, kNumbers = 5030, kOutdent = 5031,
                     kPaste = 5032, kRedo = 5033, kRemoveFormat = 5034, kSelectAll = 5035, kSendBackward = 5036,
                     kBringForward = 5037, kSendBelowText = 5038, kBringAboveText = 5039, kSendToBack = 5040,
                     kBringToFront = 5041, kSetBackColour = 5042, kSetBlockFormat = 5043, kSetFontName = 5044,
                     kSetFontSize = 5045, kSetForeColour = 5046, kSplitCell = 5047, kUnderline = 5048, kUndo = 5049,
                     kUnlink = 5050, kBullets = 5051, kPasteText = 5101;

/// Answers to the question for a command's status. Below `kEnabled` the command is not available.
inline constexpr int kNotSupported = 0;
inline constexpr int kDisabled = 1;
inline constexpr int kEnabled = 3;
/// What the command sets is set for the whole selection.
inline constexpr int kLatched = 7;
/// It is set for a part of the selection.
inline constexpr int kMixed = 11;

} // namespace mrd::ui::command
