<?php

declare(strict_types=1);

namespace Zorvel\Bench\Tests;

use PHPUnit\Framework\TestCase;
use Zorvel\Bench\Samples;

final class SamplesTest extends TestCase
{
    public function testRatiosAreTakenWithinTheRounds(): void
    {
        $samples = new Samples(['file' => [3.0, 30.0], 'text' => [2.0, 20.0], 'read' => [2.0, 20.0]])
            ->with(new Samples(['file' => [9.0], 'text' => [2.0], 'read' => [1.0]]));

        self::assertSame(9.0, $samples->time('file'));
        self::assertSame(1.5, $samples->ratio('file', 'text'));
        self::assertSame(0.75, $samples->ratio('file', 'text', 'read'));
        self::assertNull($samples->ratio('file', 'text', 'other'));
        self::assertSame('read', $samples->fastest(['other', 'file', 'read']));
    }

    public function testReadsWhatIsPrinted(): void
    {
        $samples = new Samples(['file' => [1.0, 2.5e-7]]);

        self::assertEquals($samples, Samples::ofJson(json_encode($samples, JSON_THROW_ON_ERROR)));
    }
}
