<?php

declare(strict_types=1);

use Zorvel\Bench\Job;

require __DIR__ . '/autoload.php';

try {
    Job::run(...array_slice($argv, 1));
} catch (RuntimeException $failure) {
    fwrite(STDERR, $failure->getMessage() . "\n");
    exit(1);
}
