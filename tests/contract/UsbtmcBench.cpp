#include "contract/DriverBenches.h"

#include "drivers/usbtmc/UsbtmcTransport.h"
#include "support/doubles/FakeUsbtmc.h"
#include "support/doubles/ManualClock.h"

namespace portico::test {
namespace {

using namespace drivers;

/// Two devices, since each lets one session in.
class UsbtmcBench final : public DriverBench {
public:
  UsbtmcBench(const InstrumentScript& script, std::chrono::milliseconds timeout)
      : m_first(m_usb.Plug({{}, 0x1234, 0xABCD, "SN1", 0, "", ""}, script)),
        m_driver({{InterfaceKind::Usb,
                   [this](const ResourceName& name) {
                     return std::make_unique<UsbtmcTransport>(std::get<UsbAddress>(name.GetAddress()), m_usb, m_clock);
                   }}},
                 {m_clock, timeout, &observer}) {
    m_usb.Plug({{}, 0x1234, 0xABCD, "SN2", 0, "", ""}, script);
  }

  IExtendedDriver& Driver() override { return m_driver; }
  std::string Name() const override { return "usb::4660::0xabcd::SN1::instr"; }
  std::string SecondName() const override { return "USB0::0x1234::0xABCD::SN2::0::INSTR"; }
  std::string CanonicalName() const override { return "USB0::0x1234::0xABCD::SN1::0::INSTR"; }
  std::string Place() const override { return "USB 0x1234::0xABCD::SN1"; }
  std::string ReceivedUpTo(const std::string& /*bytes*/) override { return m_first.received; }
  void Send(const std::string& bytes) override { m_usb.Send(m_first, bytes); }

private:
  ManualClock m_clock;
  FakeUsbtmc m_usb{m_clock};
  FakeUsbtmc::Device& m_first;
  InstrumentDriver m_driver;
};

} // namespace

DriverBenchKind UsbtmcBenchKind() {
  return {"Usbtmc",
          MakeBench<UsbtmcBench>,
          {.marksEnd = true, .recovery = TransportTraits::RecoveryKind::DeviceClear, .returnsToLocal = true}};
}

} // namespace portico::test
