/* A driver library with one session, which answers a read with what was last written. */

#include "drivers/TVSCPI_32.h"

#include <string.h>

static char written[64];
static int32_t termination;
static char errorQuery[64];

static void CopyText(char* target, size_t size, const char* text) {
  strncpy(target, text, size - 1);
  target[size - 1] = '\0';
}

int32_t TVSCPI_init(const char* name, int32_t idQuery, int32_t reset, int32_t* session) {
  if (strcmp(name, "ECHO") != 0 || idQuery != 0 || reset != 0) return -1;
  *session = 1;
  return 0;
}

int32_t TVSCPI_close(int32_t session) { return session == 1 ? 0 : -2; }

int32_t TVSCPI_WriteInstrData(int32_t session, const char* text) {
  CopyText(written, sizeof written, text);
  return TVSCPI_close(session);
}

int32_t TVSCPI_ReadInstrData(int32_t session, int32_t size, char* buffer, int32_t* count) {
  CopyText(buffer, (size_t)size, written);
  *count = (int32_t)strlen(buffer) + 1;
  return TVSCPI_close(session);
}

int32_t TVSCPI_GetAttributeViInt32(int32_t session, int32_t zero, int32_t attribute, int32_t* value) {
  (void)zero;
  (void)attribute;
  *value = termination;
  return TVSCPI_close(session);
}

int32_t TVSCPI_GetAttributeViString(int32_t session, int32_t zero, int32_t attribute, int32_t size, char* buffer) {
  (void)zero;
  (void)attribute;
  CopyText(buffer, (size_t)size, errorQuery);
  return TVSCPI_close(session);
}

int32_t TVSCPI_SetAttributeViInt32(int32_t session, int32_t zero, int32_t attribute, int32_t value) {
  (void)zero;
  (void)attribute;
  termination = value;
  return TVSCPI_close(session);
}

int32_t TVSCPI_SetAttributeViString(int32_t session, int32_t zero, int32_t attribute, const char* text) {
  (void)zero;
  (void)attribute;
  CopyText(errorQuery, sizeof errorQuery, text);
  return TVSCPI_close(session);
}

int32_t TVSCPI_error_message(int32_t session, int32_t status, char* buffer) {
  (void)session;
  CopyText(buffer, 256, status == -1 ? "There is only ECHO.\n" : "The session is not open.\n");
  return 0;
}
