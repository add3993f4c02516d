#include "threads.hpp"

#include <system_error>
#include <thread>
#include <vector>

namespace python {

void in_threads(int parts, const std::function<void(int)>& part) {
    std::vector<std::thread> threads;
    int started = 1;
    try {
        threads.reserve(static_cast<size_t>(parts - 1));
        for (; started < parts; ++started) threads.emplace_back(std::cref(part), started);
    } catch (const std::system_error&) {
    } catch (const std::bad_alloc&) {
    }
    part(0);
    for (int i = started; i < parts; ++i) part(i);
    for (std::thread& thread : threads) thread.join();
}

}  // namespace python
