# The two commands a new user types: `make run` and `make test`.
BUILD      ?= build
ASAN_BUILD ?= build-asan
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
WIN_BUILD  ?= build-windows
WIN_TEST_BUILD ?= build-windows-tests
# The Windows Qt that scripts/build-windows-qt builds once and keeps outside the work tree.
RIGWRIGHT_CACHE ?= $(HOME)/.cache/rigwright
WIN_QT     ?= $(RIGWRIGHT_CACHE)/qt-6.4.2-mingw64
JOBS       ?= $(shell nproc)

.PHONY: all deps configure build run test test-asan fuzz bench package package-check windows \
        test-windows clean

all: build

deps:
	@./scripts/install-deps

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo

configure: deps $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	./$(BUILD)/src/rigwright

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

test-asan: deps
	cmake -S . -B $(ASAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DRIGWRIGHT_SANITIZE=ON
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	cd $(ASAN_BUILD) && QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0 \
	  UBSAN_OPTIONS=print_stacktrace=1 ctest --output-on-failure -j $(JOBS)

# Each reader's fuzzer for FUZZ_SECONDS, one after the other; not part of the tests.
fuzz:
	@./scripts/install-deps --fuzz
	CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DRIGWRIGHT_FUZZ=ON -DBUILD_TESTING=OFF
	cmake --build $(FUZZ_BUILD) -j $(JOBS) --target fuzz_fixture_reader fuzz_qxf_reader
	./scripts/run-fuzz $(FUZZ_BUILD) $(FUZZ_SECONDS)

bench: build
	QT_QPA_PLATFORM=offscreen ./$(BUILD)/bench/rigwright-bench

package: build
	cmake --build $(BUILD) --target package

package-check:
	./scripts/check-package $(BUILD)

# The 64-bit Windows program, cross-built with MinGW-w64: the portable folder zipped and the
# setup, as $(WIN_BUILD)/rigwright-<version>-win64.zip and -win64-setup.exe. The first run
# builds Qt for Windows (half an hour or more); later runs reuse it. Only the program and its
# packages: the test programs build in a folder of their own ($(WIN_TEST_BUILD), test-windows).
windows:
	@./scripts/install-deps --windows
	RIGWRIGHT_CACHE=$(RIGWRIGHT_CACHE) ./scripts/build-windows-qt
	nice -n 15 cmake -S . -B $(WIN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Release \
	  -DCMAKE_TOOLCHAIN_FILE=$(CURDIR)/cmake/mingw64-toolchain.cmake \
	  -DCMAKE_PREFIX_PATH=$(WIN_QT) -DQT_HOST_PATH=/usr \
	  -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake -DBUILD_TESTING=OFF
	nice -n 15 cmake --build $(WIN_BUILD) -j $(JOBS) --target windows-package

# The Windows suite under Wine, headless: every test program built for Windows and run, its
# results read and summed; then the setup's contents against the portable folder, and the QLC+
# library converted by the Windows program and by the Linux one. Each part runs even when one
# before it failed; the target fails when any did.
test-windows: windows build
	nice -n 15 cmake -S . -B $(WIN_TEST_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Release \
	  -DCMAKE_TOOLCHAIN_FILE=$(CURDIR)/cmake/mingw64-toolchain.cmake \
	  -DCMAKE_PREFIX_PATH=$(WIN_QT) -DQT_HOST_PATH=/usr \
	  -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake -DBUILD_TESTING=ON
	nice -n 15 cmake --build $(WIN_TEST_BUILD) -j $(JOBS)
	@failed=0; \
	nice -n 10 ./scripts/run-windows-tests $(WIN_TEST_BUILD) $(WIN_QT) || failed=1; \
	nice -n 10 ./scripts/check-windows-setup $(WIN_BUILD) $(WIN_TEST_BUILD) || failed=1; \
	nice -n 10 ./scripts/compare-windows-corpus $(BUILD)/src/rigwright $(WIN_BUILD) \
	  $(WIN_TEST_BUILD) || failed=1; \
	exit $$failed

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(FUZZ_BUILD) $(WIN_BUILD) $(WIN_TEST_BUILD)
