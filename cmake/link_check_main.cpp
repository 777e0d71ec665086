// The entry point of the link checks (cmake/LinkCheck.cmake). Weak, so that a library that
// brings its own main (the tests' main) wins; never run.
__attribute__((weak)) int main()
{
    return 0;
}
