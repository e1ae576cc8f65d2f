/* Opens a file without sharing it, prints "held" and keeps it open until standard input ends. */
#include <stdio.h>
#include <windows.h>

int wmain(int count, wchar_t** arguments) {
  if (count != 2) return 1;
  HANDLE file = CreateFileW(arguments[1], GENERIC_READ, 0, NULL, OPEN_EXISTING, 0, NULL);
  if (file == INVALID_HANDLE_VALUE) return 1;
  puts("held");
  fflush(stdout);
  return getchar() != EOF;
}
