// Compiled by CTest, not linked. As written it must compile: strings and character pointers make
// string values. With VYR_MISUSE it must not: a pointer to anything else used to become the
// boolean true without a word.
#include <string>

#include <vyrcore/CIMValue.h>

using NORXVYR20::TCIMValue;

int main() {
  char buffer[] = "text";
  char* characters = buffer;
  const char* constant = "text";
  TCIMValue value = characters;
  value = constant;
  value.Set(buffer);
  value.Set(std::string("text"));
#ifdef VYR_MISUSE
  int number = 1;
  TCIMValue fromPointer = &number;
  value.Set(&fromPointer);
#endif
  return 0;
}
