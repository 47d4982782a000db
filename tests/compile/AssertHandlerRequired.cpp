// Compiled by CTest, not linked: including the public headers must stop with the reason when
// BOOST_ENABLE_ASSERT_HANDLER is missing, and compile when it is defined.
#include <vyrcore/vyrcore.h>

int main() { return 0; }
