#include "../tests/document/log/MemoryLogDisk.h"
#include "document/log/LogText.h"
#include "document/log/LogWriter.h"
#include "framework/errors/ErrorRecord.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

using namespace portico;

namespace {

constexpr char Path[] = "log";

/// All that a visitor is told, as one text.
class Told final : public ILogVisitor {
public:
  void Header(const LogElement& element) override { Add('H', element); }
  void SessionOpened(const LogElement& element) override { Add('S', element); }
  void Entity(const LogElement& element) override {
    Add('E', element);
    Text.append(element.Text).append("\n");
  }
  std::string Text;

private:
  void Add(char kind, const LogElement& element) {
    (Text += kind).append(element.Name);
    for (const LogAttribute& attribute : element.Attributes) {
      Text.append(" ").append(attribute.Name).append("=").append(attribute.Value);
    }
    Text += '\n';
  }
};

void Require(bool holds) {
  if (!holds) std::abort();
}

/// The size of the pieces makes no difference.
void CheckPieces(std::string_view bytes, std::size_t piece, const LogReading& whole, const std::string& told) {
  Told pieces;
  const LogReading reading = LogReader::Read(
      [bytes, piece](char* buffer, std::size_t size) mutable {
        const std::size_t count = bytes.copy(buffer, std::min(piece, size));
        bytes.remove_prefix(count);
        return count;
      },
      pieces);
  Require(reading.Ending == whole.Ending);
  if (whole.Ending == LogReading::End::Broken) return;
  Require(reading.SoundEnd == whole.SoundEnd && reading.InSession == whole.InSession && reading.Size == whole.Size);
  Require(pieces.Text == told);
}

/// A log that can be read can be extended, and keeps all that it held.
void CheckExtending(const std::string& bytes, const LogReading& reading, const std::string& told) {
  test::MemoryLogDisk disk;
  disk.Put(Path, bytes);
  LogWriter writer(disk, Path);
  writer.TakeUp(disk.Open(Path, ILogDisk::Access::Read)->Identity(), reading);
  LogStamps others;
  writer.OpenSession(u"open");
  writer.Save(others);
  writer.Append("\n<X><![CDATA[41]]></X>");
  writer.Save(others);
  writer.CloseSession(u"close");
  writer.Save(others);

  Told after;
  const LogReading extended = LogReader::Read(disk.Bytes(Path), after);
  Require(extended.Ending == LogReading::End::Complete && extended.IsOurs() && extended.TornCloseStamps.empty());
  Require(after.Text == told + "SSession SessionOpenTimeStamp=open SessionCloseTimeStamp=close\nEX\n41\n");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  Told told;
  const LogReading reading = LogReader::Read(bytes, told);
  CheckPieces(bytes, data[0] + 1U, reading, told.Text);
  if (reading.Ending != LogReading::End::Broken && reading.IsOurs()) CheckExtending(bytes, reading, told.Text);
  return 0;
}
