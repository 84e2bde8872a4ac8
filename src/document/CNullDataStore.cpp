#include "document/CNullDataStore.h"

#include "document/CDataFIFO.h"

namespace portico {

Ref<IIteratableObject> CNullDataStore::FillDataContainerFromStore() { return New<CDataFIFO>(); }

} // namespace portico
