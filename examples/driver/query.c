/*
 * Asks an instrument one question:  query INSTRUMENT QUERY
 *
 *   folder=/usr/lib/$(gcc -dumpmachine)/portico
 *   gcc query.c -o query -L$folder -lportico-driver -Wl,-rpath,$folder
 */

#include <portico/TVSCPI_32.h>
#include <stdio.h>

static int Fail(int32_t session, int32_t status) {
  char message[256] = "";
  TVSCPI_error_message(session, status, message);
  fputs(message, stderr);
  return 1;
}

int main(int argc, char** argv) {
  static char answer[1 << 20];
  char command[1024];
  int32_t session = 0;
  int32_t count = 0;
  int32_t status;
  if (argc != 3) {
    fputs("usage: query INSTRUMENT QUERY\n", stderr);
    return 2;
  }
  status = TVSCPI_init(argv[1], 0, 0, &session);
  if (status != 0) return Fail(0, status);
  /* A command ends in a carriage return; the driver adds what the instrument's interface wants behind it. */
  snprintf(command, sizeof command, "%s\r", argv[2]);
  status = TVSCPI_WriteInstrData(session, command);
  if (status == 0) status = TVSCPI_ReadInstrData(session, sizeof answer, answer, &count);
  if (status != 0) {
    Fail(session, status);
  } else {
    fwrite(answer, 1, (size_t)count - 1, stdout); /* the last byte is no data */
    putchar('\n');
  }
  TVSCPI_close(session);
  return status == 0 ? 0 : 1;
}
