# shellcheck shell=bash
# A package configuration of our own, made from the machine's sources: for packages of another
# architecture and for source packages. The machine's own configuration, lists and package state
# are only read; no root is needed.

# debian_sources prints one line per source of this Debian release that the machine uses:
#   URI|suite|field of the signature
# from one-line (.list) and multi-line (.sources) files. Line ends inside an embedded key are
# written as \n.
debian_sources() {
  local codename=$1 files=()
  shopt -s nullglob
  files=(/etc/apt/sources.list /etc/apt/sources.list.d/*.list)
  [ -e /etc/apt/sources.list ] || files=("${files[@]:1}")
  local one_line=("${files[@]}") stanzas=(/etc/apt/sources.list.d/*.sources)
  shopt -u nullglob
  {
    [ "${#one_line[@]}" -eq 0 ] || awk '
      $1 == "deb" {
        line = $0; sub(/#.*/, "", line); sub(/^[ \t]*deb[ \t]+/, "", line); signed = ""
        if (line ~ /^\[/) {
          options = line; sub(/\].*/, "", options); sub(/^\[[ \t]*/, "", options)
          sub(/^[^]]*\][ \t]*/, "", line)
          n = split(options, option, /[ \t]+/)
          for (i = 1; i <= n; i++) {
            if (option[i] ~ /^signed-by=/) signed = "Signed-By: " substr(option[i], 11)
            if (option[i] ~ /^trusted=/) signed = "Trusted: " substr(option[i], 9)
          }
        }
        n = split(line, word, /[ \t]+/)
        for (i = 3; i <= n; i++) if (word[i] == "main") print word[1] "|" word[2] "|" signed
      }' "${one_line[@]}"
    [ "${#stanzas[@]}" -eq 0 ] || awk '
      function flush(  i, j, n, m, uri, suite, signature) {
        signature = value["trusted"] != "" ? "Trusted: " value["trusted"] \
          : value["signed-by"] != "" ? "Signed-By: " value["signed-by"] : ""
        n = split(value["uris"], uri, /[ \t]+/); m = split(value["suites"], suite, /[ \t]+/)
        if ((" " value["types"] " ") ~ /[ \t]deb[ \t]/ &&
            (" " value["components"] " ") ~ /[ \t]main[ \t]/ &&
            tolower(value["enabled"]) !~ /^(no|false|off|0)$/)
          for (i = 1; i <= n; i++)
            for (j = 1; j <= m; j++)
              if (uri[i] != "" && suite[j] != "")
                print uri[i] "|" suite[j] "|" signature
        split("", value); name = ""
      }
      FNR == 1 && NR > 1 { flush() }
      /^#/ { next }
      /^[ \t]*$/ { flush(); next }
      /^[ \t]/ { value[name] = value[name] (name == "signed-by" ? "\\n" : "") $0; next }
      { name = tolower($0); sub(/:.*/, "", name)
        text = $0; sub(/^[^:]*:[ \t]*/, "", text); value[name] = text }
      END { flush() }' "${stanzas[@]}"
  } | awk -F '|' -v codename="$codename" '
      ($2 == codename || $2 == codename "-updates" || $2 == codename "-security" ||
       $2 ~ /^(old)*stable(-updates|-security)?$/) && !seen[$1 "|" $2]++'
}

# private_apt DIR args... runs apt-get with the configuration in DIR.
private_apt() {
  local dir=$1
  shift
  apt-get -c "$dir/apt.conf" "$@"
}

# make_private_apt DIR ARCHITECTURE deb|deb-src
# Makes DIR/apt.conf and fetches the package lists. A source whose list cannot be had for this
# architecture is left out; without the release's main source the call fails.
make_private_apt() {
  local dir=$1 architecture=$2 type=$3 codename uri suite field number=0 source
  codename=$(debian_codename)
  rm -rf -- "$dir"
  mkdir -p -- "$dir"/{sources,preferences,lists/partial,archives/partial}
  : >"$dir/status"
  while IFS='|' read -r uri suite field; do
    number=$((number + 1))
    {
      printf 'Types: %s\nURIs: %s\nSuites: %s\nComponents: main\n' "$type" "$uri" "$suite"
      [ "$type" = deb-src ] || printf 'Architectures: %s\n' "$architecture"
      [ -z "$field" ] || printf '%b\n' "$field"
    } >"$dir/sources/$number.sources"
  done < <(debian_sources "$codename")
  [ "$number" -gt 0 ] || { fail "the machine has no source for Debian $codename"; return 1; }
  cat >"$dir/apt.conf" <<EOF
APT::Architecture "$architecture";
#clear APT::Architectures;
APT::Architectures { "$architecture"; };
APT::Install-Recommends "false";
APT::Update::Error-Mode "any";
APT::Sandbox::User "root";
#clear APT::Update::Pre-Invoke;
#clear APT::Update::Post-Invoke;
#clear APT::Update::Post-Invoke-Success;
#clear DPkg::Pre-Install-Pkgs;
#clear DPkg::Pre-Invoke;
#clear DPkg::Post-Invoke;
Acquire::Languages "none";
Acquire::Retries "3";
Dir::Etc::SourceList "/dev/null";
Dir::Etc::SourceParts "$dir/sources";
Dir::Etc::Preferences "/dev/null";
Dir::Etc::PreferencesParts "$dir/preferences";
Dir::State "$dir";
Dir::State::Lists "$dir/lists";
Dir::State::Status "$dir/status";
Dir::Cache "$dir";
Dir::Cache::Archives "$dir/archives";
Dir::Cache::PkgCache "";
Dir::Cache::SrcPkgCache "";
EOF
  private_apt "$dir" update && return 0
  # One source is out of order: find it by asking for each alone.
  for source in "$dir"/sources/*.sources; do
    mkdir -p -- "$dir/one"
    cp -- "$source" "$dir/one/"
    if ! private_apt "$dir" -o Dir::Etc::SourceParts="$dir/one" update; then
      echo "left out:"
      cat -- "$source"
      rm -- "$source"
    fi
    rm -r -- "$dir/one"
  done
  grep -qE "^Suites: ($codename|(old)*stable)\$" "$dir"/sources/*.sources 2>/dev/null ||
    { fail "the package lists of Debian $codename ($architecture) cannot be fetched"; return 1; }
  private_apt "$dir" update
}
