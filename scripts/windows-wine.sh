# shellcheck shell=bash disable=SC2154
# Sourced by the scripts that run Windows programs under Wine: the Wine prefix of a build
# folder, made once, and how Unix paths look from Windows. Needs `build` (an absolute path) and
# a function `say`.
#
# - Wine hands no environment variable that starts with QT_ to a Windows program. The prefix's
#   own environment (HKCU\Environment) holds them instead: the offscreen platform, and a font
#   folder. Qt's offscreen platform on Windows finds fonts only in Qt's folder or in
#   QT_QPA_FONTDIR; without any, every letter is drawn as a box of one width, and the widths of
#   columns and the cells that they cut are no longer those of any real font.
# - No display: the programs never reach an X server, others' or ours.

# Wine shows every Unix path on drive Z:.
windows_path() { local p=${1//\//\\}; printf 'Z:%s' "$p"; }

export WINEPREFIX=$build/wine
export WINEDEBUG=-all
# No Mono, no Gecko: Wine would offer to download them when the prefix is made.
export WINEDLLOVERRIDES="mscoree,mshtml="
export WINEARCH=win64
unset DISPLAY WAYLAND_DISPLAY

wine_fonts=$build/fonts
mkdir -p "$wine_fonts"
for font in /usr/share/fonts/truetype/liberation2/*.ttf /usr/share/fonts/truetype/dejavu/DejaVuSans*.ttf; do
  if [ -e "$font" ]; then ln -sf "$font" "$wine_fonts/"; fi
done
if ! compgen -G "$wine_fonts/*.ttf" >/dev/null; then
  say "no Liberation or DejaVu fonts (fonts-liberation2, fonts-dejavu-core) for $wine_fonts"
  exit 1
fi

if [ ! -e "$WINEPREFIX/rigwright-prefix-ready" ]; then
  say "making the Wine prefix $WINEPREFIX (once)"
  rm -rf "$WINEPREFIX"
  wine wineboot --init >/dev/null 2>&1 || true
  wine reg add 'HKCU\Environment' /v QT_QPA_PLATFORM /d offscreen /f >/dev/null
  wine reg add 'HKCU\Environment' /v QT_QPA_FONTDIR /d "$(windows_path "$wine_fonts")" /f >/dev/null
  # The tests open COM1 as one of Windows' reserved names: it leads nowhere, never to a serial
  # port of this machine.
  wine reg add 'HKLM\Software\Wine\Ports' /v COM1 /d /dev/null /f >/dev/null
  wineserver -w
  touch "$WINEPREFIX/rigwright-prefix-ready"
fi
