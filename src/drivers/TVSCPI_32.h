#ifndef TVSCPI_32_H
#define TVSCPI_32_H

/*
 * The instrument driver library: the nine functions that a library exports so that the console can talk through it.
 *
 * Plain C. Every function answers with a signed status: 0 is success, anything else a failure whose text
 * TVSCPI_error_message knows. Text is 8-bit and ends with a zero byte. A session handle is never 0. All memory
 * belongs to the caller.
 */

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Opens the instrument `name` and writes its handle to `session`. `idQuery` and `reset` are 0. */
int32_t TVSCPI_init(const char* name, int32_t idQuery, int32_t reset, int32_t* session);

int32_t TVSCPI_close(int32_t session);

/* Sends `text`, which already ends in a carriage return. */
int32_t TVSCPI_WriteInstrData(int32_t session, const char* text);

/*
 * Fills `buffer` (of `size` bytes) with one response message; `count` is the bytes delivered, the last not data. A
 * message that does not fit is consumed to its end and `count` is `size`. The console wipes the buffer before each call
 * and takes the counted bytes alone: behind them, up to `size`, a library may leave whatever it likes.
 */
int32_t TVSCPI_ReadInstrData(int32_t session, int32_t size, char* buffer, int32_t* count);

/* `zero` is 0 in the four attribute functions. */
int32_t TVSCPI_GetAttributeViInt32(int32_t session, int32_t zero, int32_t attribute, int32_t* value);
int32_t TVSCPI_GetAttributeViString(int32_t session, int32_t zero, int32_t attribute, int32_t size, char* buffer);
int32_t TVSCPI_SetAttributeViInt32(int32_t session, int32_t zero, int32_t attribute, int32_t value);
int32_t TVSCPI_SetAttributeViString(int32_t session, int32_t zero, int32_t attribute, const char* text);

/*
 * Writes at most 254 bytes of text, a line feed and a zero byte. The console takes the last two characters off,
 * whatever they are. `session` 0 asks about the last open that failed.
 */
int32_t TVSCPI_error_message(int32_t session, int32_t status, char* buffer);

#ifdef __cplusplus
}
#endif

#endif
