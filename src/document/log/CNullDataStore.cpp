#include "document/log/CNullDataStore.h"

#include "document/entities/CDataFIFO.h"

namespace portico {

Ref<IIteratableObject> CNullDataStore::FillDataContainerFromStore() { return New<CDataFIFO>(); }

} // namespace portico
