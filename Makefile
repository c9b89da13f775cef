# The front door. `make` alone says what there is.
BUILD ?= build
JOBS ?= $(shell nproc)

help:
	@echo 'make run       open Tarvix (with no display: the same job without a window)'
	@echo 'make test      build and run all tests'
	@echo 'make build     build build/bin/tarvix and build/bin/tarvix-cli'
	@echo 'make setup     install the Debian packages that are needed'
	@echo 'make nightly   the random tests, with many more rounds'
	@echo 'make sanitize  all tests with address and undefined behaviour checks'
	@echo 'make sanitize-threads  all tests with checks of what threads share'
	@echo 'make bench     time it beside its peers (ONLY="copy move" for some jobs)'
	@echo 'make readers   have players, parsers and a browser read written playlists and pages'
	@echo 'make screenshots  pictures of every window into docs/screenshots'
	@echo 'make fuzz      feed the parsers foreign bytes (SECONDS=60 each)'
	@echo 'make lint      layers, format, warnings of clang, clang-tidy'
	@echo 'make format    format all sources'
	@echo 'make package   a Debian package in build/'
	@echo 'make clean     remove all builds'

setup:
	@tools/setup

setup-developer: setup
	@tools/setup packaging/developer-packages.txt

build/CMakeCache.txt: CMakeLists.txt CMakePresets.json
	@cmake --preset release >/dev/null

build: setup build/CMakeCache.txt
	@cmake --build build -j $(JOBS)

run: setup build/CMakeCache.txt
	@cmake --build build -j $(JOBS) --target tarvix tarvix-cli
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then build/bin/tarvix; else tools/demo build; fi

test: build
	@tools/check-layers
	@tools/check-prompts
	@ctest --test-dir build -j $(JOBS) --output-on-failure
	@tools/test-as-user build

nightly: build
	@TARVIX_NIGHTLY=1 ctest --test-dir build -j $(JOBS) --timeout 3600 --output-on-failure \
		-R 'Promise|Foretold|KillTest|Sweep|Swap|RandomRequests|NamesTest|NameLists|RecordedSessions'

sanitize: setup-developer
	@cmake --preset asan >/dev/null
	@cmake --build build-asan -j $(JOBS)
	@ctest --test-dir build-asan -j $(JOBS) --output-on-failure

sanitize-threads: setup-developer
	@cmake --preset tsan >/dev/null
	@cmake --build build-tsan -j $(JOBS)
	@GIO_USE_VFS=local TSAN_OPTIONS=suppressions=$(CURDIR)/tests/thread-sanitizer.supp \
		ctest --test-dir build-tsan -j $(JOBS) --output-on-failure

headless: setup
	@cmake --preset headless >/dev/null
	@cmake --build build-headless -j $(JOBS) --target tarvix-cli

bench: setup-developer
	@cmake --preset bench >/dev/null
	@cmake --build build -j $(JOBS)
	@bench/run build $(ONLY)

readers: build
	@tools/setup packaging/reader-packages.txt
	@tools/check-lists build

screenshots: setup build/CMakeCache.txt
	@cmake --build build -j $(JOBS) --target test_forms
	@tools/screenshots build

SECONDS ?= 60
fuzz: setup-developer
	@cmake --preset fuzz >/dev/null
	@cmake --build build-fuzz -j $(JOBS)
	@tools/run-fuzz build-fuzz $(SECONDS)

lint: setup-developer
	@cmake --preset lint >/dev/null
	@tools/lint build-lint

format:
	@git ls-files '*.h' '*.cpp' | xargs clang-format-16 -i

package: build
	@cd build && cpack -G DEB

clean:
	@rm -rf build build-*

.PHONY: help setup setup-developer build run test nightly sanitize sanitize-threads headless bench readers screenshots fuzz lint format package clean
