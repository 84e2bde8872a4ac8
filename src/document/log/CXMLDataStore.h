#pragma once

#include "configuration/PackedText.h"
#include "document/encoders/CHexEncoder.h"
#include "document/entities/CDataFIFO.h"
#include "document/entities/IDataStore.h"
#include "document/log/LogFile.h"
#include "document/log/LogStamps.h"
#include "document/log/LogWriter.h"

#include <memory>

namespace portico {

/// The log: one XML document on disk, with a header and any number of sessions. docs/formats/log.md describes it.
///
/// The file is written when the store makes it, and at each `OpenSession`, `AppendDataEntityToStore` and
/// `CloseSession`; after each it is a whole document. Letting the store go closes an open session.
///
/// The reader finds what is wrong with a file, and the store raises it: `BadFile` for what cannot be read as a log,
/// `BadFileFormat` for a log without one header of this application. A file that cannot be written raises `FileAccess`;
/// what was to be saved goes out with the next save. Only an entity whose stamp another program has written meanwhile
/// is given up, which raises `FileAccess`, too.
class CXMLDataStore final : public IDataStore {
public:
  explicit CXMLDataStore(std::shared_ptr<ILogDisk> disk = std::make_shared<LogDisk>()) : m_disk(std::move(disk)) {}
  ~CXMLDataStore() override;
  StringView ClassName() const override { return u"CXMLDataStore"; }

  /// A save has failed, with that text; the error follows.
  Event<StringView> SaveFailed;
  /// Another program has the file locked, and a save is about to wait for it.
  Event<>& AboutToWait() { return m_disk->AboutToWait; }
  /// Something was to be saved and is not in the file yet, or never will be.
  bool IsAnythingUnwritten() const { return m_document && m_document->IsAnythingUnsaved(); }

  /// Opens the file or makes it. An empty name raises `InvalidArgument`. Forgets a session that is open in another
  /// file.
  void Initialize(const String& FileName, bool OverWrite);

  /// Reads the file as it is now. Forgets the session that is open, whether it succeeds or not: a log that is looked at
  /// is not written. An element without payload raises `BadSubscript`, a stamp that stands twice `DuplicateKey`.
  Ref<IIteratableObject> FillDataContainerFromStore() override;
  /// Before `Initialize` it raises `NotInitialized`, without a session `CannotCarryOut`. A null entity raises
  /// `InvalidArgument`, and one whose type cannot name an element `CannotCreate`; these two are foreseen.
  void AppendDataEntityToStore(const Ref<IDataEntity>& DataEntity) override;
  Refusal Offer(const Ref<IDataEntity>& DataEntity) override;
  /// Raises `CannotCarryOut` if a session is open.
  void OpenSession() override;
  /// Raises `CannotCarryOut` if no session is open.
  void CloseSession() override;

private:
  class Filler;

  Ref<CDataFIFO> FillDataFIFOFromStore();
  Refusal AppendDataEntity(const Ref<IDataEntity>& DataEntity);
  void OpenNewSession();
  void CloseCurrentSession();
  Ref<IDataEntity> ElementToDataEntity(const LogElement* Element, Filler& names) const;
  ByteArray Payload(std::string_view text, bool isString) const;
  static bool IsPrivateAttribute(const PackedText& Name);
  Refusal DataEntityToElement(const Ref<IDataEntity>& DataEntity, std::string& element) const;
  static void AppendContent(std::string& element, const Ref<IDataEntity>& DataEntity);
  Refusal AppendEntityElement(const Ref<IDataEntity>& DataEntity);
  bool StoreIsValid(const LogReading& reading) const;
  bool CreateStoreSkeleton();
  void InititalizeDataStore(const String& FileName, bool OverWrite);
  bool FileExists(const String& Name) const;

  void LoadStore();
  void TakeUpStamps();
  LogReading ReadStore(ILogVisitor& visitor, LogFileIdentity& identity) const;
  void TellMissingEnd() const;
  void Save();
  LogWriter& Document() const;
  String TheFile() const { return u"The file, " + m_fileName + u", "; }
  String NotValid() const { return TheFile() + u"is not a valid data store."; }
  String Label(StringView member) const { return String(ClassName()).append(member); }

  std::shared_ptr<ILogDisk> m_disk;
  bool m_initialized = false;
  String m_fileName;
  Ref<CHexEncoder> m_encoder;
  std::unique_ptr<LogWriter> m_document;
  LogStamps m_stamps; // of others, which those that this program draws must not repeat
  bool m_inSession = false;
};

/// Makes `Class::DataStore`: without an XML parser a `CNullDataStore`.
extern const CreatorRow CtorXMLDataStore;

} // namespace portico
