// A "libcurl.so" that loads but stops short: it defines the first two entry points the transfers
// look up and not the third, curl_easy_setopt.
extern "C" int curl_global_init(long) { return 0; }
extern "C" void* curl_easy_init() { return nullptr; }
