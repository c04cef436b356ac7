<?php

// Makes a page of templates that nobody vouches for. Sandbox starts it in an empty folder, with limits on memory and
// time. It loads its code, shuts itself into the folder, and only then looks at what it was sent.

declare(strict_types=1);

use Zorvel\Playground\Job;

require dirname(__DIR__) . '/autoload.php';
foreach (glob(__DIR__ . '/{src,../../packages/{view/src{,/*},tools/src{,/Rule,/Template}}}/*.php', GLOB_BRACE) ?: [] as $file) {
    require_once $file;
}
$report = fopen('php://fd/3', 'w') ?: throw new RuntimeException('Nobody reads the report');
$job = (string) stream_get_contents(STDIN);

ini_set('open_basedir', (string) getcwd());
array_map(stream_wrapper_unregister(...), array_diff(stream_get_wrappers(), ['file']));

foreach (new Job($job)->reports() as $part) {
    fwrite($report, json_encode($part, JSON_INVALID_UTF8_SUBSTITUTE | JSON_THROW_ON_ERROR) . "\n");
}
