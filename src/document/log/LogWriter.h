#pragma once

#include "document/log/LogReader.h"
#include "document/log/LogStamps.h"
#include "framework/text/text.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace portico {

/// The file is no log of this application and is left alone.
struct NoLogFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The file holds the stamp of an entity that was to be saved: another program has drawn it, too. The entity has been
/// given up, since a log that holds a stamp twice cannot be read; all else is saved.
struct StampTakenFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Keeps a log on disk by adding to it. After each save the file is the document that all calls so far make, as if it
/// had been written whole.
///
/// A save opens and locks the file, makes sure that it is the one and the length that it left, writes the new bytes
/// over the closing tags with the tags behind them, and closes it. What a failed save could not write goes out with the
/// next. A file that somebody else has changed is extended by a session of its own, one that is gone is begun anew, and
/// one that is no log any more is left alone. docs/formats/log.md tells what a cut through a write leaves.
class LogWriter {
public:
  /// `disk` outlives the writer.
  LogWriter(ILogDisk& disk, std::string path) : m_disk(disk), m_path(std::move(path)) {}

  /// Makes a log without sessions.
  /// False if somebody else has made a file of that name.
  bool Create();
  /// Takes up the file that the reading is of. Writes nothing.
  void TakeUp(const LogFileIdentity& identity, LogReading reading);

  // What is to be saved. The element is one entity's and begins with a line feed.
  void OpenSession(StringView stamp);
  void Append(std::string_view element);
  /// Gives the session that was opened last a close stamp, or another one.
  void CloseSession(StringView stamp);

  /// Throws NoLogFault, StampTakenFault, or what the disk throws. `others` is told of all stamps of a log that others
  /// have changed.
  void Save(LogStamps& others);

  /// Something has not been saved, or never will be.
  bool IsAnythingUnsaved() const { return !m_text.empty() || m_stamping || m_hasGivenUp; }
  /// The log as the file has it, without what a failed save has left in it.
  LogReader::Source SourceOf(const ILogFile& file) const;
  /// A document of what has not been saved; empty if there is no such thing.
  std::string Unsaved() const;

private:
  struct Session {
    String OpenStamp;
    String CloseStamp;
    /// Of its tag, which begins with a line feed: in the text, or in the file.
    std::uint64_t Position = 0;
    std::string Tag() const;
    std::uint64_t Room() const;
  };

  /// A close stamp for a session whose tag is in the file.
  struct Stamping {
    Session Closed;
    std::string Field;
  };

  /// Of an entity, in the text.
  struct Element {
    std::size_t Position = 0;
    std::size_t Size = 0;
  };

  std::string_view ClosingTags() const;
  static bool HoldsTag(const ILogFile& file, const Session& session);
  bool StandsAsLeft(const ILogFile& file, const LogFileIdentity& now) const;
  std::string TextOfItsOwn() const;
  void MakeTextItsOwn();
  void LetGoOfFile(const ILogFile* now);
  void SaveAll(LogStamps& others);
  bool BeginAnew();
  void TakeUpChanged(const ILogFile& file, LogStamps& others);
  void GiveUp(const std::vector<bool>& isTaken);
  std::unique_ptr<ILogFile> Prepare(std::unique_ptr<ILogFile> file);
  bool CanBeAddedTo() const { return m_reading.IsUtf8 && !m_reading.HasEpilogue; }
  void Close(ILogFile& file);
  bool IsTraceOfAttempt(const ILogFile& file) const;
  void WriteStamp(ILogFile& file);
  void Write(ILogFile& file);
  void Undo(ILogFile& file);
  void TextIsSaved(const LogFileIdentity& identity);

  ILogDisk& m_disk;
  std::string m_path;

  LogFileIdentity m_identity;
  std::uint64_t m_end = 0; // where the next bytes go, and our closing tags stand once the file is prepared
  bool m_isPrepared = false;
  LogReading m_reading;               // of a file that is not prepared
  std::optional<Session> m_openAtEnd; // the session of ours that m_end lies in

  std::string m_text; // to be saved
  std::vector<Element> m_elements;
  std::optional<Session> m_last;
  bool m_isLastInText = false;
  std::string m_attempt; // what a save has tried to write at m_end and perhaps has
  std::optional<Stamping> m_stamping;
  bool m_hasGivenUp = false;
  bool m_mustTell = false; // of an entity that was given up
};

} // namespace portico
