#pragma once

/**
 * Registers everything of the catalogue as properties, in their groups.
 *
 * The properties of both chips are registered, whichever one the tool runs on. Called once, from
 * main, before anything is looked up. The registry owns what is registered.
 */
void platform_register_properties();
