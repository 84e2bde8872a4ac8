#pragma once

#include "framework/text/text.h"

namespace portico::test {

/// A button of the main window's toolbar, as it is meant to be.
struct ExpectedButton {
  StringView Key;
  StringView Id; ///< the tool tip of the design
  StringView ToolTip;
  StringView Image;
  bool IsCheck = false;
  bool IsSeparator = false;
};

inline constexpr ExpectedButton ExpectedButtons[] = {
    {u"OpenInstrument", u"8010", u"Open Instrument", u"Instrument", true},
    {u"Sep0", u"", u"", u"", false, true},
    {u"View Log", u"8030", u"View Log File...", u"ViewLog"},
    {u"Logger", u"", u"", u"Logger", true},
    {u"Pause", u"8040", u"Pause Logging", u"Pause", true},
    {u"Sep1", u"", u"", u"", false, true},
    {u"Print", u"8060", u"Print", u"Print"},
    {u"Cut", u"8070", u"Cut", u"Cut"},
    {u"Copy", u"8080", u"Copy", u"Copy"},
    {u"Paste", u"8090", u"Paste", u"Paste"},
    {u"Copy to", u"8100", u"Copy to File", u"Copyto"},
    {u"Paste from", u"8110", u"Paste from File", u"Pastefrom"},
    {u"Step", u"8120", u"Step", u"Step"},
    {u"Run", u"8130", u"Run", u"Run"},
    {u"Run to Cursor", u"8140", u"Run to Cursor", u"Run2Cursor"},
    {u"Stop", u"8150", u"Stop", u"Stop"},
    {u"Read", u"", u"", u"Status"},
};

} // namespace portico::test
