#include "document/log/CXMLDataStore.h"

#include "document/entities/CDataEntity.h"
#include "document/log/CMockTimeStampServer.h"
#include "document/log/CNullDataStore.h"
#include "document/log/LogText.h"
#include "document/log/LogWatch.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/Guards.h"

#include <algorithm>
#include <system_error>

namespace portico {
namespace {

constexpr std::size_t UsualSize = 512; // of an element, in bytes

/// Nearly all that a log holds is ASCII, and there is much of it.
String TextOf(std::string_view bytes) {
  const bool ascii = std::all_of(bytes.begin(), bytes.end(), [](char byte) { return (byte & 0x80) == 0; });
  return ascii ? FromAscii(bytes) : FromUtf8(bytes).Text;
}

LogReader::Source Watched(LogReader::Source source, std::uint64_t total) {
  return [source = std::move(source), total, done = std::uint64_t{0}](char* buffer, std::size_t size) mutable {
    LogWatch::TellBytes(done, total);
    const std::size_t count = source(buffer, size);
    done += count;
    return count;
  };
}

/// In order. Who keeps them in a table need not make objects of them.
template <class See>
void ForEachAttribute(const Ref<IDataEntity>& entity, See see) {
  if (const CDataEntity* known = CDataEntity::From(entity)) {
    const SettingTable& table = known->Attributes();
    for (std::size_t at = 0; at < table.Count(); ++at) see(table.Name(at), table.Value(at));
  } else if (const auto attributes = entity->DataAttributes()) {
    for (const Ref<IAttribute>& attribute : attributes->NewEnum()) {
      see(PackedText(attribute->Name()), PackedText(attribute->Value()));
    }
  }
}

String SystemText(const std::system_error& error) { return FromUtf8(error.code().message()).Text; }

} // namespace

CXMLDataStore::~CXMLDataStore() {
  if (!m_inSession) return;
  try {
    CloseCurrentSession();
  } catch (...) {
    SwallowInDestructor(u"CXMLDataStore.Class_Terminate");
  }
}

void CXMLDataStore::Initialize(const String& FileName, bool OverWrite) try {
  HuntERR::Check(!FileName.empty(), ErrorNumber::InvalidArgument, u"File name cannot be an empty string.");
  auto encoder = New<CHexEncoder>();
  HuntERR::Check(bool(encoder), ErrorNumber::CannotCreate, u"Failed to create a data encoder.");
  InititalizeDataStore(FileName, OverWrite);
  m_encoder = encoder;
  m_fileName = FileName;
  m_initialized = true;
} catch (...) {
  PassOn(Label(u".Initialize"));
}

void CXMLDataStore::InititalizeDataStore(const String& FileName, bool OverWrite) try {
  m_fileName = FileName;
  m_inSession = false; // it was in the other document
  m_stamps = {};
  m_document = std::make_unique<LogWriter>(*m_disk, ToUtf8(FileName));
  HuntERR::Check(bool(m_document), ErrorNumber::CannotCreate, u"Failed to create a DOM document.");
  try {
    if (OverWrite && FileExists(FileName)) m_disk->Remove(ToUtf8(FileName));
  } catch (const std::system_error& error) {
    HuntERR::Raise(ErrorNumber::FileAccess, ClassName(), TheFile() + u"cannot be deleted: " + SystemText(error) + u".");
  }
  if (FileExists(FileName) || !CreateStoreSkeleton()) LoadStore();
} catch (...) {
  PassOn(Label(u".InititalizeDataStore(FileName, OverWrite)"), {FileName, OverWrite});
}

bool CXMLDataStore::FileExists(const String& Name) const { return m_disk->Exists(ToUtf8(Name)); }

void CXMLDataStore::LoadStore() {
  LogFileIdentity identity;
  LogReading reading = ReadStore(m_stamps, identity);
  HuntERR::Check(StoreIsValid(reading), ErrorNumber::BadFileFormat, NotValid());
  m_document->TakeUp(identity, std::move(reading));
}

LogReading CXMLDataStore::ReadStore(ILogVisitor& visitor, LogFileIdentity& identity) const {
  LogReading reading;
  try {
    if (const auto file = m_disk->Open(ToUtf8(m_fileName), ILogDisk::Access::Read)) {
      identity = file->Identity();
      reading = LogReader::Read(Watched(Document().SourceOf(*file), identity.Size), visitor);
    }
  } catch (const std::system_error&) { // what cannot be read is broken
    reading.Ending = LogReading::End::Broken;
  }
  HuntERR::Check(reading.Ending != LogReading::End::Broken, ErrorNumber::BadFile, [this] { return NotValid(); });
  return reading;
}

bool CXMLDataStore::StoreIsValid(const LogReading& reading) const try {
  const LogFault fault = reading.Fault();
  HuntERR::Check(fault != LogFault::NoHeader, ErrorNumber::BadFileFormat,
                 u"This data store does not contain header information.");
  HuntERR::Check(fault != LogFault::SecondHeader, ErrorNumber::BadFileFormat,
                 u"This data store contains more than one header.");
  HuntERR::Check(fault != LogFault::OtherApplication, ErrorNumber::BadFileFormat, u"");
  return true;
} catch (...) {
  PassOn(Label(u".StoreIsValid"));
}

/// False if somebody else has made the file meanwhile.
bool CXMLDataStore::CreateStoreSkeleton() try {
  try {
    return m_document->Create();
  } catch (const std::system_error& error) {
    HuntERR::Raise(ErrorNumber::FileAccess, ClassName(), TheFile() + u"cannot be written: " + SystemText(error) + u".");
  }
} catch (...) {
  PassOn(Label(u".CreateStoreSkeleton()"));
}

void CXMLDataStore::OpenSession() try { OpenNewSession(); } catch (...) {
  PassOn(Label(u".IDataStore_OpenSession()"));
}

void CXMLDataStore::OpenNewSession() try {
  // The text is the one for a session that is missing; both failures bear it.
  HuntERR::Check(!m_inSession, ErrorNumber::CannotCarryOut, u"No session is currently open.");
  TakeUpStamps();
  Document().OpenSession(gTimeStamper->TimeStamp());
  m_inSession = true;
  Save();
} catch (...) {
  PassOn(Label(u".OpenSession()"));
}

/// The stamps that are drawn from here on are not in the log.
void CXMLDataStore::TakeUpStamps() {
  if (m_stamps.IsEmpty()) return;
  if (auto* server = dynamic_cast<CMockTimeStampServer*>(gTimeStamper.Get())) server->TakeUp(m_stamps);
  m_stamps = {};
}

void CXMLDataStore::AppendDataEntityToStore(const Ref<IDataEntity>& DataEntity) {
  if (const Refusal refusal = Offer(DataEntity)) refusal.Raise();
}

Refusal CXMLDataStore::Offer(const Ref<IDataEntity>& DataEntity) {
  return Refusable(
      {ClassName(), u".IDataStore_AppendDataEntityToStore(DataEntity)"}, [&] { return AppendDataEntity(DataEntity); },
      DataEntity);
}

Refusal CXMLDataStore::AppendDataEntity(const Ref<IDataEntity>& DataEntity) {
  return Refusable(
      {ClassName(), u".AppendDataEntity(DataEntity)"},
      [&] {
        CheckAccessible(m_initialized);
        HuntERR::Check(m_inSession, ErrorNumber::CannotCarryOut, u"No session is currently open.");
        Refusal refusal = AppendEntityElement(DataEntity);
        if (!refusal) Save();
        return refusal;
      },
      DataEntity);
}

Refusal CXMLDataStore::AppendEntityElement(const Ref<IDataEntity>& DataEntity) {
  return Refusable(
      {ClassName(), u".AppendEntityElement(DataEntity)"},
      [&] {
        std::string element;
        Refusal refusal = DataEntityToElement(DataEntity, element);
        if (!refusal) Document().Append(element);
        return refusal;
      },
      DataEntity);
}

Refusal CXMLDataStore::DataEntityToElement(const Ref<IDataEntity>& DataEntity, std::string& element) const {
  return Refusable(
      {ClassName(), u".DataEntityToElement(DataEntity)"},
      [&] {
        if (!DataEntity) return Refusal(ErrorNumber::InvalidArgument, u"Data entity cannot be nothing.");
        const String type = DataEntity->DataType();
        if (!LogText::IsName(type)) return Refusal(ErrorNumber::CannotCreate, u"Cannot create an XML element.");
        element.reserve(UsualSize);
        element += "\n<";
        const std::size_t name = element.size();
        AppendUtf8(element, type);
        const std::size_t nameEnd = element.size();
        AppendContent(element, DataEntity);
        element.append("</").append(element, name, nameEnd - name).append(">");
        return Refusal();
      },
      DataEntity);
}

/// The attributes that are not private, the end of the tag, and the payload.
void CXMLDataStore::AppendContent(std::string& element, const Ref<IDataEntity>& DataEntity) {
  String format;
  ForEachAttribute(DataEntity, [&](const PackedText& name, const PackedText& value) {
    if (IsPrivateAttribute(name)) return;
    if (name.Equals(AttributeName::DataFormat)) format = value.ToString();
    HuntERR::Check(LogText::IsName(name), ErrorNumber::CannotCreate, u"Cannot create an XML attribute.");
    LogText::AppendAttribute(element, name, value);
  });
  element += '>';
  if (format == FromAscii(LogName::StringFormat)) {
    LogText::AppendCharacterData(element, DataEntity->ReadText());
  } else {
    element += "<![CDATA[";
    CHexEncoder::AppendEncoded(element, DataEntity->ReadData());
    element += "]]>";
  }
}

bool CXMLDataStore::IsPrivateAttribute(const PackedText& Name) { return Name.Length() > 0 && Name[0] == u'_'; }

void CXMLDataStore::CloseSession() try { CloseCurrentSession(); } catch (...) {
  PassOn(Label(u".IDataStore_CloseSession()"));
}

void CXMLDataStore::CloseCurrentSession() try {
  HuntERR::Check(m_inSession, ErrorNumber::CannotCarryOut, u"No session is currently open.");
  Document().CloseSession(gTimeStamper->TimeStamp());
  Save();
  m_inSession = false;
} catch (...) {
  PassOn(Label(u".CloseSession()"));
}

LogWriter& CXMLDataStore::Document() const {
  if (!m_document) RaiseUnsetReference();
  return *m_document;
}

void CXMLDataStore::Save() {
  ErrorRecord failure;
  try {
    Document().Save(m_stamps);
    return TakeUpStamps();
  } catch (const NoLogFault& fault) {
    failure.Number = ErrorNumber::BadFile;
    failure.Description = TheFile() + u"is not a valid data store: " + FromUtf8(fault.what()).Text + u".";
  } catch (const StampTakenFault& fault) {
    failure.Number = ErrorNumber::FileAccess;
    failure.Description = TheFile() + FromUtf8(fault.what()).Text + u".";
  } catch (const std::system_error& error) {
    failure.Number = ErrorNumber::FileAccess;
    failure.Description = TheFile() + u"cannot be written: " + SystemText(error) + u".";
  }
  TakeUpStamps();
  failure.Source = ClassName();
  SaveFailed(failure.Description.Text());
  HuntERR::Raise(std::move(failure));
}

Ref<IIteratableObject> CXMLDataStore::FillDataContainerFromStore() try { return FillDataFIFOFromStore(); } catch (...) {
  PassOn(Label(u".IDataStore_FillDataContainerFromStore()"));
}

/// Puts the entities of a log into a container.
class CXMLDataStore::Filler final : public ILogVisitor {
public:
  Filler(const CXMLDataStore& store, CDataFIFO& fifo) : m_store(store), m_fifo(fifo) {}

  void SessionOpened(const LogElement& session) override { LogWatch::TellSession(session); }

  void Entity(const LogElement& entity) override {
    m_fifo.Enqueue(m_store.ElementToDataEntity(&entity, *this));
    LogWatch::TellEntity(entity);
  }

  /// Nearly all elements bear the same few attributes.
  const String& Name(const std::string& name) {
    for (const auto& [bytes, text] : m_names) {
      if (bytes == name) return text;
    }
    if (m_names.size() == MostNames) m_names.clear();
    return m_names.emplace_back(name, FromUtf8(name).Text).second;
  }

private:
  static constexpr std::size_t MostNames = 8;

  const CXMLDataStore& m_store;
  CDataFIFO& m_fifo;
  std::vector<std::pair<std::string, String>> m_names;
};

Ref<CDataFIFO> CXMLDataStore::FillDataFIFOFromStore() try {
  CheckAccessible(m_initialized);
  m_inSession = false;
  auto fifo = New<CDataFIFO>();
  fifo->Initialize(0);
  Filler filler(*this, *fifo);
  LogFileIdentity identity;
  const LogReading reading = ReadStore(filler, identity);
  HuntERR::Check(StoreIsValid(reading), ErrorNumber::BadFileFormat, NotValid());
  LogReader::Read(Document().Unsaved(), filler);
  if (reading.Ending == LogReading::End::Torn) TellMissingEnd();
  return fifo;
} catch (...) {
  PassOn(Label(u".FillDataFIFOFromStore()"));
}

/// A log that is being written may look torn. Who holds its lock sees whether it is.
void CXMLDataStore::TellMissingEnd() const {
  LogReading reading;
  try {
    ILogVisitor nobody;
    const auto file = m_disk->Open(ToUtf8(m_fileName), ILogDisk::Access::LockedRead);
    if (file) reading = LogReader::Read(*file, nobody);
  } catch (const std::system_error&) { // who cannot look again has nothing to tell
  }
  if (reading.Ending == LogReading::End::Torn) LogWatch::TellMissingEnd(reading);
}

Ref<IDataEntity> CXMLDataStore::ElementToDataEntity(const LogElement* Element, Filler& names) const try {
  HuntERR::Check(Element != nullptr, ErrorNumber::InvalidArgument, u"XML element cannot be nothing.");
  Ref<IDataEntity> entity = modDataDocument::CreateADataEntity({}, u"", u"");
  HuntERR::Check(bool(entity), ErrorNumber::CannotCreate, u"Cannot create a data entity.");
  bool isString = false;
  for (const LogAttribute& attribute : Element->Attributes) {
    if (attribute.Name == LogName::DataFormat) isString = attribute.Value == LogName::StringFormat;
    entity->DataAttribute(names.Name(attribute.Name), TextOf(attribute.Value));
  }
  entity->UpdateData(Payload(Element->Text, isString));
  return entity;
} catch (...) {
  PassOn(Label(u".ElementToDataEntity(Element)"));
}

ByteArray CXMLDataStore::Payload(std::string_view text, bool isString) const {
  if (isString) return ToBytes(TextOf(text));
  if (auto data = CHexEncoder::TryDecode(text)) return std::move(*data);
  return m_encoder->Decode(FromUtf8(text).Text); // raises what is wrong with it
}

const CreatorRow CtorXMLDataStore = {
    .Name = u"CtorXMLDataStore",
    .Specification = Class::DataStore,
    .ParamCount = Class::DataStore.ParamCount,
    .Make = [](const Params& Parameters) -> Ref<IObject> {
      if (!modGlobals::XMLParserAvailable()) return New<CNullDataStore>();
      auto store = New<CXMLDataStore>();
      store->Initialize(Parameters[0].ToString(), Parameters[1].ToBoolean());
      return store;
    },
};

} // namespace portico
