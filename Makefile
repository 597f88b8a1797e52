# The two everyday commands are `make demo` and `make test` (see README.md).
JOBS  ?= $(shell nproc)
# ccache, where the machine has it, makes rebuilds in several checkouts cheap.
CCACHE := $(if $(shell command -v ccache),-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
CMAKE := cmake -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo $(CCACHE)
CTEST := ctest --output-on-failure -j $(JOBS)

.PHONY: all deps build build-asan test test-plain test-asan demo bench fuzz format package clean

all: build

deps:
	@scripts/install-deps

build:
	@test -f build/build.ninja || $(CMAKE) -S . -B build
	@cmake --build build -j $(JOBS)

build-asan:
	@test -f build-asan/build.ninja || $(CMAKE) -DTIDEMARK_SANITIZE=ON -DTIDEMARK_BENCH=OFF -S . -B build-asan
	@cmake --build build-asan -j $(JOBS)

# The whole suite, once plain and once under AddressSanitizer + UndefinedBehaviorSanitizer.
test: test-plain test-asan

test-plain: build
	@cd build && $(CTEST)

test-asan: build-asan
	@cd build-asan && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 $(CTEST)

# Reads and conditions the bundled example files; outputs go to demo-out/.
demo: deps build
	@scripts/demo

bench: build
	@build/bin/tidemark_bench $(BENCH_ARGS)

# libFuzzer targets, built with clang; run one with e.g.
#   build-fuzz/bin/native_reader_fuzz -max_total_time=60 tests/fixtures/fuzz/native_reader
fuzz:
	@test -f build-fuzz/build.ninja || CXX=clang++ $(CMAKE) -DTIDEMARK_FUZZ=ON -S . -B build-fuzz
	@cmake --build build-fuzz -j $(JOBS)

# A Debian package of both programs (CPack): build/tidemark_<version>_<arch>.deb.
package: build
	@cmake --build build --target package

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	@rm -rf build build-asan build-fuzz demo-out
