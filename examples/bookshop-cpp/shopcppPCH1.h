#include <vcl.h>
#include <tchar.h>
