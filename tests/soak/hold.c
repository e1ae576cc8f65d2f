/* Opens a file without sharing it until standard input ends. */
#include <stdio.h>
#include <windows.h>

int wmain(int count, wchar_t** arguments) {
  HANDLE file = CreateFileW(arguments[count - 1], GENERIC_READ, 0, NULL, OPEN_EXISTING, 0, NULL);
  puts(file == INVALID_HANDLE_VALUE ? "refused" : "held");
  return fflush(stdout) + getchar();
}
