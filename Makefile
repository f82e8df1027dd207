# Short names for the scripts, which need no make themselves.
.PHONY: demo test build bench fuzz docs format install

prefix ?= /usr/local

demo:
	scripts/demo.sh

test:
	scripts/test.sh

build:
	scripts/build.sh dev

bench:
	scripts/bench.sh

fuzz:
	scripts/fuzz.sh 10

docs:
	scripts/docs.sh

format:
	scripts/format.sh

install:
	scripts/build.sh release
	cmake --install build/release --prefix $(prefix)
