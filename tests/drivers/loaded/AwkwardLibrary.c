/*
 * A driver library that does what the contract leaves open or a careless maker might: the last command says what the
 * next read does. Each handle is 5. The name "WARN" opens with a warning; "FAIL" opens nothing.
 */

#include "drivers/TVSCPI_32.h"

#include <string.h>

static char command[64];

static int32_t Deliver(char* buffer, const char* bytes, size_t length, int32_t counted, int32_t* count) {
  memcpy(buffer, bytes, length);
  *count = counted;
  return 0;
}

int32_t TVSCPI_init(const char* name, int32_t idQuery, int32_t reset, int32_t* session) {
  (void)idQuery;
  (void)reset;
  if (strcmp(name, "FAIL") == 0) return -9;
  *session = 5;
  return strcmp(name, "WARN") == 0 ? 3 : 0;
}

int32_t TVSCPI_close(int32_t session) { return session == 5 ? 0 : -2; }

int32_t TVSCPI_WriteInstrData(int32_t session, const char* text) {
  if (session != 5) return -2;
  memset(command, 0, sizeof command);
  strncpy(command, text, strcspn(text, "\r"));
  return strcmp(command, "WRITE WARN") == 0 ? 4 : 0;
}

int32_t TVSCPI_ReadInstrData(int32_t session, int32_t size, char* buffer, int32_t* count) {
  if (session != 5) return -2;
  if (strcmp(command, "SECRET?") == 0) return Deliver(buffer, "secret answer", 14, 14, count);
  if (strcmp(command, "BEHIND?") == 0) return Deliver(buffer, "1.5\0an old answer", 17, 4, count);
  if (strcmp(command, "CLAIM?") == 0) return Deliver(buffer, "1.5", 3, 14, count);
  if (strcmp(command, "NEGATIVE?") == 0) return Deliver(buffer, "1.5", 4, -4, count);
  if (strcmp(command, "SILENT?") == 0) return 0;
  if (strcmp(command, "FULL?") == 0 || strcmp(command, "BEYOND?") == 0) {
    memset(buffer, 'x', (size_t)size);
    *count = strcmp(command, "FULL?") == 0 ? size : size + 100;
    return 0;
  }
  if (strcmp(command, "WARN?") == 0) {
    Deliver(buffer, "2.5", 4, 4, count);
    return 3;
  }
  return -7;
}

int32_t TVSCPI_GetAttributeViInt32(int32_t session, int32_t zero, int32_t attribute, int32_t* value) {
  (void)zero;
  *value = attribute + session;
  return 0;
}

/* Writes no zero byte. */
int32_t TVSCPI_GetAttributeViString(int32_t session, int32_t zero, int32_t attribute, int32_t size, char* buffer) {
  (void)session;
  (void)zero;
  (void)attribute;
  memcpy(buffer, "SYST:ERR?", (size_t)(size < 9 ? size : 9));
  return 0;
}

int32_t TVSCPI_SetAttributeViInt32(int32_t session, int32_t zero, int32_t attribute, int32_t value) {
  (void)session;
  (void)zero;
  return attribute == 1150007 && value != 12 ? 0 : 6;
}

int32_t TVSCPI_SetAttributeViString(int32_t session, int32_t zero, int32_t attribute, const char* text) {
  (void)session;
  (void)zero;
  return attribute == 1150002 && strcmp(text, "E?") == 0 ? 0 : -8;
}

/* Without a line feed. Of a status that it does not know it says nothing at all. */
int32_t TVSCPI_error_message(int32_t session, int32_t status, char* buffer) {
  (void)session;
  if (status == 3) strcpy(buffer, "A warning");
  if (status == -7) strcpy(buffer, "Nothing was asked");
  if (status == -9) strcpy(buffer, "The library opens nothing of that name");
  return 0;
}
