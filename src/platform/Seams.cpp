#include "platform/ICommandFiles.h"
#include "platform/ICommonDialog.h"
#include "platform/IDesktop.h"
#include "platform/IDrawingOutput.h"
#include "platform/IEventLoop.h"
#include "platform/IExtendedDriver.h"
#include "platform/IForm.h"
#include "platform/IInstrumentList.h"
#include "platform/IInstrumentSearch.h"
#include "platform/ILineFile.h"
#include "platform/IProgress.h"
#include "platform/IRegistry.h"
#include "platform/ISettingsStore.h"

#include <memory>

// The seams that a platform fills, all in one place.

namespace portico {

Ref<ICommonDialog> gCommonDialog;
std::shared_ptr<IClipboard> gClipboard;
std::shared_ptr<ICommandFiles> gCommandFiles;
std::shared_ptr<IDrawingOutput> gDrawingOutput;
std::shared_ptr<IEventLoop> gEventLoop;
std::shared_ptr<IForms> gForms;
std::shared_ptr<IHelpViewer> gHelpViewer;
std::shared_ptr<IExtendedDriver> gInstrumentDriver;
std::shared_ptr<IInstrumentList> gInstrumentList;
std::shared_ptr<IInstrumentSearch> gInstrumentSearch;
std::shared_ptr<IKeyboard> gKeyboard;
std::shared_ptr<ILineFile> gSentLinesFile;
std::shared_ptr<IMessageBox> gMessageBox;
std::shared_ptr<IPrinter> gPrinter;
std::shared_ptr<IProgress> gProgress;
std::shared_ptr<IRegistry> gRegistry;
std::shared_ptr<ISettingsStore> gSettingsStore;

} // namespace portico
