/* A driver library without two of the functions. */

#include "drivers/TVSCPI_32.h"

int32_t TVSCPI_init(const char* name, int32_t idQuery, int32_t reset, int32_t* session) {
  (void)name;
  (void)idQuery;
  (void)reset;
  *session = 1;
  return 0;
}

int32_t TVSCPI_WriteInstrData(int32_t session, const char* text) { return text == 0 ? session : 0; }

int32_t TVSCPI_ReadInstrData(int32_t session, int32_t size, char* buffer, int32_t* count) {
  (void)buffer;
  *count = size;
  return session;
}

int32_t TVSCPI_GetAttributeViInt32(int32_t session, int32_t zero, int32_t attribute, int32_t* value) {
  *value = zero + attribute;
  return session;
}

int32_t TVSCPI_GetAttributeViString(int32_t session, int32_t zero, int32_t attribute, int32_t size, char* buffer) {
  (void)buffer;
  return session + zero + attribute + size;
}

int32_t TVSCPI_SetAttributeViInt32(int32_t session, int32_t zero, int32_t attribute, int32_t value) {
  return session + zero + attribute + value;
}

int32_t TVSCPI_SetAttributeViString(int32_t session, int32_t zero, int32_t attribute, const char* text) {
  return text == 0 ? session + zero + attribute : 0;
}
