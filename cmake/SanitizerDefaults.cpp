// Part of every program of a sanitizer build.

// What the toolkit takes for itself and does not give back at the end: the screen of its offscreen platform, animations
// under way and what hangs on them. What is taken in our own functions is still seen.
extern "C" const char * __lsan_default_suppressions() {
    return "leak:libqoffscreen\n"
           "leak:QScreen::QScreen\n"
           "leak:QPlatformScreen::QPlatformScreen\n"
           "leak:QWindowSystemInterface::handleScreenAdded\n"
           "leak:QPropertyAnimation::QPropertyAnimation\n"
           "leak:QObject::QObject\n"
           "leak:QObjectPrivate::addConnection\n"
           "leak:QObject::connectImpl\n"
           "leak:QArrayData::allocate\n"
           "leak:QtSharedPointer::ExternalRefCountData::getAndRef\n";
}

extern "C" const char * __asan_default_options() {
    return "print_suppressions=0";
}

// The toolkit is not built with the thread sanitizer: how its threads hand over its own data is not seen. Ours goes through
// mutexes and atomics of the standard library.
extern "C" const char * __tsan_default_suppressions() {
    return "called_from_lib:libQt5Core\n"
           "race:libQt5Core\n";
}
