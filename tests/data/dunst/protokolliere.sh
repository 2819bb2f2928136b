#!/bin/sh
# Called by dunst for every notification it shows: id, application, summary, body, urgency and
# desktop entry, tab-separated, appended to the file named in VELMORA_DUNST_PROTOKOLL.
printf '%s\t%s\t%s\t%s\t%s\t%s\n' "$DUNST_ID" "$DUNST_APP_NAME" "$DUNST_SUMMARY" "$DUNST_BODY" \
    "$DUNST_URGENCY" "$DUNST_DESKTOP_ENTRY" >> "$VELMORA_DUNST_PROTOKOLL"
