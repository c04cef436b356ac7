<?php

/** @generate-class-entries */

/**
 * Renders a template.
 *
 * @param string $fileName the template file, searched along the include path; in string mode the template itself
 * @param array $userData the data that the template's tags name
 * @param bool $string_mode whether $fileName holds the template's text
 *
 * @return string|null the page; null after a failure, which is reported as one warning
 */
function zorvel(string $fileName, array $userData, bool $string_mode = false): ?string {}
