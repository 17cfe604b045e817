# Short names for what is done often. Everything else stands in CMakePresets.json.

SOURCES := $(shell git ls-files 'src/*.cpp' 'src/*.h' 'tests/*.cpp' 'tests/*.h' 'bench/*.cpp' 'bench/*.h')

.PHONY: check asan fuzz bench format tidy

check:            # debug build, all tests
	cmake --workflow --preset dev

asan:             # the same under the address and undefined-behaviour sanitizers
	cmake --workflow --preset asan

fuzz:             # every fuzz target for a minute
	cmake --preset fuzz && cmake --build --preset fuzz
	for target in build/fuzz/tests/fuzz/fuzz_*; do \
	    [ -x $$target ] && [ -f $$target ] || continue; \
	    reader=$${target##*/fuzz_}; mkdir -p build/fuzz/found/$$reader; \
	    $$target -max_total_time=60 -rss_limit_mb=2048 build/fuzz/found/$$reader \
	        tests/data/corpus/$$reader || exit 1; \
	done

bench:            # the figures of bench/README.md
	cmake --preset release -DTAGWRIGHT_BENCH=ON && cmake --build --preset release
	bench/run

format:
	clang-format -i $(SOURCES)

tidy:
	cmake --preset dev && cmake --build --preset dev
	clang-tidy -p build/dev --quiet $(filter src/%.cpp,$(SOURCES))
