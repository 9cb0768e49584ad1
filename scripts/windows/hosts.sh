# shellcheck shell=bash
# For the scripts beside it: runs the example hosts and holds what they say to what they have to.

# Where the examples lie, from the tree.
examples=$(echo build/windows/delivery/wynconfig-*/examples)

# Runs a host on a store of its own, and fails unless it writes just the text of the standard input.
#   processor, then the command; the root of the store is its last argument
expect_of() {
  local store said wanted
  store=$(mktemp -d)
  wanted=$(cat)
  said=$(timeout 120 scripts/windows/unattended scripts/windows/wine "$@" "Z:${store//\//\\}\\" | tr -d '\r') \
    || said+=" and ended with $?"
  if [ "$said" != "$wanted" ]; then
    diff <(echo "$wanted") <(echo "$said") >&2 || true
    echo "not what ${*: -1} had to say" >&2
    exit 1
  fi
  echo "as it has to: $*"
}

# Runs the hosts in scripts: processor, path of cscript
run_hosts() {
  expect_of "$1" "$2" //nologo "$examples/host.vbs" <<'END'
The store is made: True
Adding a session gave 1 and ''
Picking a session gave 1 and ''
Part formats in memory: an array of type 8200
Its text has 0 characters
Texts were asked for: True
END
  expect_of "$1" "$2" //nologo "$examples/host.js" <<'END'
The button to confirm reads Abbrechen
Sessions: 0
The session dialog gave 1
In memory is KEPT BY THE HOST
END
}
