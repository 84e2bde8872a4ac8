#pragma once

#include <cstdint>

namespace portico {

/// The numbers of all errors. Those below 0x10000 are standard numbers, used again with the program's own text; the
/// others count up from the application base 0x80040000.
namespace ErrorNumber {

inline constexpr std::int32_t InvalidArgument = 5;
inline constexpr std::int32_t Overflow = 6;
inline constexpr std::int32_t OutOfMemory = 7;
inline constexpr std::int32_t BadSubscript = 9;
inline constexpr std::int32_t DivisionByZero = 11;
inline constexpr std::int32_t TypeMismatch = 13;
inline constexpr std::int32_t CannotCarryOut = 17;
inline constexpr std::int32_t InternalState = 51;
inline constexpr std::int32_t FileNotFound = 53;
inline constexpr std::int32_t FileAccess = 75;
inline constexpr std::int32_t MissingObject = 91;
inline constexpr std::int32_t BadFileFormat = 321;
inline constexpr std::int32_t BadPropertyValue = 380;
inline constexpr std::int32_t BadIndex = 381;
inline constexpr std::int32_t ObjectRequired = 424;
inline constexpr std::int32_t PropertyNotFound = 438;
inline constexpr std::int32_t NotImplemented = 445;
inline constexpr std::int32_t WrongParameterCount = 450;
inline constexpr std::int32_t DuplicateKey = 457;
inline constexpr std::int32_t ControlNotFound = 730;
inline constexpr std::int32_t CannotCreate = 31004;
inline constexpr std::int32_t BadFile = 31037;
/// Of the common dialogs: the user has cancelled.
inline constexpr std::int32_t DialogCancelled = 32755;
/// Of the status bar's panels and the toolbar's buttons.
inline constexpr std::int32_t IndexOutOfBounds = 35600;
inline constexpr std::int32_t ElementNotFound = 35601;

constexpr std::int32_t Own(std::uint32_t number) { return static_cast<std::int32_t>(number); }

/// Distances in an error report are counted from here.
inline constexpr std::int32_t ApplicationBase = Own(0x80040000);
/// For errors in this range no report is made: they pass along with their own description.
inline constexpr std::int32_t FirstExpected = Own(0x80041065);
inline constexpr std::int32_t LastExpected = Own(0x8004144D);
/// The user has given up a long piece of work.
inline constexpr std::int32_t WorkGivenUp = FirstExpected;
/// The general error, also raised by `ErrorIn` itself.
inline constexpr std::int32_t ERRMAP_APP_FIRST = Own(0x8004144E);

inline constexpr std::int32_t NoHandler = Own(0x80041450);
inline constexpr std::int32_t MissingText = Own(0x80041451);
/// Marks in `IReport::GetErrorCode`, never raised: the signal to go on, and the end of an instruction.
inline constexpr std::int32_t SendNextInstruction = Own(0x80041453);
inline constexpr std::int32_t InstructionComplete = Own(0x80041454);
inline constexpr std::int32_t Syntax = Own(0x80041459);
inline constexpr std::int32_t MissingFunction = Own(0x8004145A);
inline constexpr std::int32_t MissingInstrumentName = Own(0x8004145C);
inline constexpr std::int32_t MissingAttributeName = Own(0x8004145F);
inline constexpr std::int32_t NotInitialized = Own(0x80041460);
inline constexpr std::int32_t NoSuchItem = Own(0x80041461);
inline constexpr std::int32_t OptionNotDefined = Own(0x80041462);

} // namespace ErrorNumber

/// What a member says that is used before its object's `Initialize`, with `ErrorNumber::NotInitialized`.
inline constexpr char16_t MethodBeforeInitialize[] = u"Method cannot be called before Initialize().";
inline constexpr char16_t PropertyBeforeInitialize[] = u"Property cannot be accessed before Initialize().";
inline constexpr char16_t PropertyNotValidBeforeInitialize[] = u"Property is not valid before Initialize().";

} // namespace portico
