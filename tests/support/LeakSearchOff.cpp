/// For programs that end while the engine's threads may still run, which the search for leaks
/// doesn't survive.
#ifdef __SANITIZE_ADDRESS__
extern "C" int __lsan_is_turned_off();
extern "C" int __lsan_is_turned_off()
{
    return 1;
}
#endif
