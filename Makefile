# The two commands a new user types: `make run` and `make test`.
BUILD      ?= build
ASAN_BUILD ?= build-asan
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
JOBS       ?= $(shell nproc)

.PHONY: all deps configure build run test test-asan fuzz bench package package-check clean

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

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(FUZZ_BUILD)
